#pragma once

#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/Pieces.h"
#include "controls/Txt.h"
#include "reports/Report.h"
#include "reports/ReportView.h"
#include <TradeForms/Printing.h>

#include <QString>

#include <memory>

namespace TradeForms {

/// The shared window that shows a report as it will be printed. A second report replaces the first.
/// Forms that print without showing keep their report here, too.
class RptReportViewer : public Form {
    Q_OBJECT
public:
    RptReportViewer();
    ~RptReportViewer() override;

    static RptReportViewer& Shared();

    /// The report that is shown, or printed by a form; null once the window has been closed.
    std::shared_ptr<TradeForms::Report> Report;

    /// Shows Report in the window, which is not modal.
    /// Raises what laying out the report raises, and Failure without a report; then the window
    /// stays as it was.
    void Show();
    /// Removes the colours of Report, if there is one: see TradeForms::RemoveObjectColors.
    void RemoveObjectColors();

    ReportView& CRViewer1;
    Txt& TxtSearch;
    JeweledButton& BtnPreviousHit;
    JeweledButton& BtnNextHit;
    Label& LblHits;
    Txt& TxtPage;
    Label& LblPages;
    JeweledButton& BtnZoomOut;
    JeweledButton& BtnZoomIn;
    Label& LblZoom;
    JeweledButton& BtnFitWidth;
    JeweledButton& BtnPrint;
    JeweledButton& BtnSavePdf;
    JeweledButton& BtnClose;
    Label& LblNote; ///< result of the last action

    static constexpr int kFirstZoom = 93;

protected:
    void FormKeyDown(KeyPress& key) override;
    void HandlerFailed(const std::exception& failure) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void load();
    void unload();
    void compose();
    QWidget* composeTools();
    void attach();
    void showPlace();
    void showHits();
    void search();
    void goToHit(bool forward);
    void goToTypedPage();
    void print();
    void savePdf();
    bool pressCtrl(int key);
    bool pressPaging(int key);
    bool pressReturn(const KeyPress& key);
    void toggleMaximized();

    TitleStrip* title_ = nullptr;
    PrintJob job_; ///< of the report in view
};

} // namespace TradeForms
