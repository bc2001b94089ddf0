#include "controls/Progress.h"

#include "controls/Form.h"
#include "controls/Look.h"
#include "controls/Pieces.h"
#include "controls/Utf8.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QProgressBar>
#include <QWindow>

namespace TradeForms {

namespace {

const int kPause = 40; ///< milliseconds between two updates of the window

} // namespace

class Progress::Box : public Form {
public:
    Box(const Caption& title, int rows)
    {
        setObjectName(QStringLiteral("Progress"));
        SetWindowCaption(utf8(title.English));

        auto* strip = new TitleStrip(title);
        strip->ImgMin().SetVisible(false);
        strip->ImgExit().SetVisible(false);

        Look::Dress(*bar_, Look::LatinFont());
        bar_->setRange(0, rows);
        bar_->setAccessibleName(utf8(title.English));
        bar_->setMinimumWidth(360);
        auto* room = new QVBoxLayout;
        room->setContentsMargins(20, 20, 20, 20);
        room->addWidget(bar_);

        JeweledButton& cancel = BarButton(nullptr, "BtnCancel", {"منسوخ", "Cancel"}, "Esc");
        cancel.OnClick += [this] { cancelled_ = true; };

        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(1, 1, 1, 1);
        column->setSpacing(0);
        column->addWidget(strip);
        column->addLayout(room);
        column->addWidget(ButtonBar({}, {&cancel}));
    }

    void Show(int row) { bar_->setValue(row); }
    bool IsCancelled() const { return cancelled_; }

protected:
    void FormKeyDown(KeyPress& key) override
    {
        cancelled_ = cancelled_ || key.Code == Qt::Key_Escape || key.Code == Qt::Key_Return;
        key.Swallow();
    }

    // Closing the window stops the work; the window stays until the work has ended.
    void QueryUnload(bool& cancel) override { cancel = cancelled_ = true; }

private:
    QProgressBar* bar_ = new QProgressBar;
    bool cancelled_ = false;
};

Progress::Progress(QWidget* owner, const Caption& title, int rows)
    : owner_(owner ? owner->window() : nullptr), rows_(rows)
{
    if (rows_ < LongWork)
        return;
    scope_.emplace();
    box_ = std::make_unique<Box>(title, rows_);
    box_->setWindowModality(Qt::ApplicationModal);
    box_->winId(); // creates the native window, needed for setTransientParent
    box_->windowHandle()->setTransientParent(owner_ ? owner_->windowHandle() : nullptr);
    box_->ShowOver(owner_);
    show();
}

Progress::~Progress()
{
    if (!box_)
        return;
    scope_->End();
    box_->hide();
    if (owner_ && owner_->isVisible())
        owner_->activateWindow();
}

void Progress::show()
{
    QCoreApplication::processEvents();
    sinceShown_.start();
}

bool Progress::Reached(int row)
{
    if (!box_)
        return true;
    if (sinceShown_.elapsed() >= kPause) {
        box_->Show(row);
        show();
    }
    return !box_->IsCancelled();
}

} // namespace TradeForms
