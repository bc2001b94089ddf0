#include "reports/ReportDeclaration.h"

namespace TradeForms {

namespace {

constexpr double tenthsPerMillimetre = 10;

} // namespace

QPageLayout ReportDeclaration::PageLayout() const
{
    return QPageLayout(QPageSize(Paper), Orientation, QMarginsF(0, 0, 0, 0),
                       QPageLayout::Millimeter);
}

QSizeF ReportDeclaration::PageSize() const
{
    return PageLayout().fullRect(QPageLayout::Millimeter).size() * tenthsPerMillimetre;
}

} // namespace TradeForms
