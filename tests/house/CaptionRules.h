#pragma once

#include <QSize>
#include <QStringList>

class QWidget;

namespace tests {

/// What is wrong with a window that is on the screen, one line each, empty where all is well:
///
/// - a text that is painted only in part. What the widgets paint is examined, so that it does not
///   matter how they reckon their size, nor which fonts there are. The cells of a list are left
///   out: what stands in them is the company's own and may be as long as it likes.
/// - a list whose columns do not all fit in;
/// - a widget that reaches out of its parent, or overlaps a sibling;
/// - a window that is larger than the screen, in logical pixels.
QStringList captionViolations(QWidget& window, const QSize& screen);

} // namespace tests
