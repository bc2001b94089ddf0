#include "controls/ModalScope.h"

#include <QEventLoop>
#include <QList>

#include <utility>

namespace TradeForms::Modal {

namespace {

Barrier surroundings;
int open = 0;

QList<QEventLoop*>& waiting()
{
    static QList<QEventLoop*> loops;
    return loops;
}

} // namespace

Barrier SetBarrier(Barrier barrier)
{
    return std::exchange(surroundings, std::move(barrier));
}

Scope::Scope()
{
    if (surroundings)
        barrier_ = surroundings();
    ++open;
}

Scope::~Scope()
{
    End();
}

void Scope::End()
{
    if (std::exchange(ended_, true))
        return;
    --open;
    barrier_.reset();
}

void Scope::Wait(QEventLoop& loop)
{
    waiting().append(&loop);
    loop.exec();
    waiting().removeOne(&loop);
}

int Scope::Open()
{
    return open;
}

void EndAll()
{
    for (auto loop = waiting().crbegin(); loop != waiting().crend(); ++loop)
        (*loop)->quit();
}

} // namespace TradeForms::Modal
