#include "support/FakeUser.h"

#include "data/Failure.h"

namespace tests {

bool FakeUser::HasRight(const QString& screenKey, std::optional<std::int16_t> modifyMarker,
                        std::optional<std::int16_t> deleteMarker)
{
    if (Broken)
        throw TradeForms::Failure(QStringLiteral("The security service does not answer."));
    const bool modify = modifyMarker == std::int16_t(1) && !deleteMarker;
    const bool remove = deleteMarker == std::int16_t(1) && !modifyMarker;
    if (modify == remove)
        throw TradeForms::Failure(QStringLiteral("Neither marker, or both."));
    Asked.append(screenKey + (modify ? QStringLiteral(" modify") : QStringLiteral(" delete")));
    return modify ? Modify : Delete;
}

} // namespace tests
