#include "data/WorkProgress.h"

#include "data/Failure.h"

namespace TradeForms {

void Tell(const OnProgress& onProgress, const WorkProgress& progress)
{
    if (onProgress && !onProgress(progress))
        throw CancelledFailure();
}

} // namespace TradeForms
