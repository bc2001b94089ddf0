#include "data/Progress.h"

#include "data/Failure.h"

namespace TradeForms {

void Tell(const OnProgress& onProgress, const Progress& progress)
{
    if (onProgress && !onProgress(progress))
        throw CancelledFailure();
}

} // namespace TradeForms
