#include "reports/ReportDefinition.h"

namespace TradeForms {

namespace {

constexpr double tenthsPerMillimetre = 10;

} // namespace

QPageLayout ReportDefinition::PageLayout() const
{
    return QPageLayout(QPageSize(Paper), Orientation, QMarginsF(0, 0, 0, 0),
                       QPageLayout::Millimeter);
}

QSizeF ReportDefinition::PageSize() const
{
    return PageLayout().fullRect(QPageLayout::Millimeter).size() * tenthsPerMillimetre;
}

} // namespace TradeForms
