#include "reports/RptReportViewer.h"

#include "controls/Caption.h"
#include "controls/FileDialog.h"
#include "controls/Hourglass.h"
#include "controls/Look.h"
#include "controls/MsgBox.h"
#include "controls/Utf8.h"
#include "data/Failure.h"
#include "reports/PrintPort.h"
#include "reports/SharedForm.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QMouseEvent>
#include <QScreen>
#include <QSizeGrip>

#include <algorithm>

namespace TradeForms {

namespace {

QString notFound()
{
    return QStringLiteral("not found");
}

/// A small button with a symbol.
JeweledButton& sign(QWidget* form, const char* name, const char* shown, const char* accessibleName)
{
    auto& small = BarButton(form, name, {shown, ""}, "", JeweledButton::Kind::Small);
    small.SetName(utf8(name), utf8(accessibleName));
    return small;
}

Label& note(QWidget* form, const char* name)
{
    auto& label = *new Label(utf8(name), {}, form);
    label.SetForeColor(Look::MutedText());
    return label;
}

} // namespace

RptReportViewer::RptReportViewer()
    : CRViewer1(*new ReportView(QStringLiteral("CRViewer1"), this)),
      TxtSearch(*new Txt(QStringLiteral("TxtSearch"), QStringLiteral("Words to search"), this)),
      BtnPreviousHit(sign(this, "BtnPreviousHit", "▲", "Previous place found")),
      BtnNextHit(sign(this, "BtnNextHit", "▼", "Next place found")), LblHits(note(this, "LblHits")),
      TxtPage(*new Txt(QStringLiteral("TxtPage"), QStringLiteral("Page number"), this)),
      LblPages(note(this, "LblPages")), BtnZoomOut(sign(this, "BtnZoomOut", "−", "Zoom out")),
      BtnZoomIn(sign(this, "BtnZoomIn", "+", "Zoom in")), LblZoom(note(this, "LblZoom")),
      BtnFitWidth(BarButton(this, "BtnFitWidth", {"پوری چوڑائی", "Fit width"}, "Ctrl+2")),
      BtnPrint(
          BarButton(this, "BtnPrint", {"پرنٹ", "Print"}, "Ctrl+P", JeweledButton::Kind::Primary)),
      BtnSavePdf(BarButton(this, "BtnSavePdf", {"محفوظ", "Save as PDF"}, "Ctrl+S")),
      BtnClose(BarButton(this, "BtnClose", {"بند", "Close"}, "Esc")), LblNote(note(this, "LblNote"))
{
    setObjectName(QStringLiteral("RptReportViewer"));
    SetWindowCaption(QStringLiteral("Previewing Report"));
    compose();
    attach();
    SetTabOrderOf({&CRViewer1, &TxtSearch, &BtnPreviousHit, &BtnNextHit, &TxtPage, &BtnZoomOut,
                   &BtnZoomIn, &BtnFitWidth, &BtnPrint, &BtnSavePdf, &BtnClose});
}

RptReportViewer::~RptReportViewer() = default;

RptReportViewer& RptReportViewer::Shared()
{
    return SharedForm<RptReportViewer>();
}

// ---- Layout

QWidget* RptReportViewer::composeTools()
{
    auto* tools = new Strip(Strip::Kind::Plain);
    auto* row = new QHBoxLayout(tools);
    row->setContentsMargins(2 * Look::Space(), Look::Space(), 2 * Look::Space(), Look::Space());
    row->setSpacing(Look::Space() / 2);

    row->addWidget(new CaptionLabel(Caption{"تلاش", "Search Ctrl+F"}));
    TxtSearch.setMinimumWidth(100);
    row->addWidget(&TxtSearch, 1);
    row->addWidget(&BtnPreviousHit);
    row->addWidget(&BtnNextHit);
    LblHits.setMinimumWidth(LblHits.fontMetrics().horizontalAdvance(notFound()) + Look::Space());
    row->addWidget(&LblHits);
    row->addSpacing(Look::Space());

    row->addWidget(new CaptionLabel(Caption{"صفحہ", "Page Ctrl+G"}));
    TxtPage.SetMasked(true);
    TxtPage.setFixedWidth(50);
    row->addWidget(&TxtPage);
    row->addWidget(&LblPages);
    row->addSpacing(Look::Space());

    row->addWidget(&BtnZoomIn);
    LblZoom.setAlignment(Qt::AlignCenter);
    LblZoom.setMinimumWidth(LblZoom.fontMetrics().horizontalAdvance(QStringLiteral("400%")));
    row->addWidget(&LblZoom);
    row->addWidget(&BtnZoomOut);
    row->addWidget(&BtnFitWidth);
    return tools;
}

void RptReportViewer::compose()
{
    title_ = new TitleStrip(Caption{"رپورٹ", "Previewing Report"});
    auto* bar = ButtonBar({&BtnPrint, &BtnSavePdf}, {&BtnClose});
    LblNote.setTextInteractionFlags(Qt::TextSelectableByMouse);
    LblNote.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* row = static_cast<QBoxLayout*>(bar->layout());
    row->insertWidget(2, &LblNote, 100);
    row->addWidget(new QSizeGrip(this), 0, Qt::AlignBottom);
    row->setContentsMargins(4, 10, 18, 10);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(1, 1, 1, 1);
    all->setSpacing(0);
    all->addWidget(title_);
    all->addWidget(composeTools());
    all->addWidget(&CRViewer1, 1);
    all->addWidget(bar);

    const QSize room = screen()->availableSize();
    resize(std::min(980, room.width()), room.height() - 4 * Look::Space());
}

void RptReportViewer::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (title_->geometry().contains(event->position().toPoint()))
        toggleMaximized();
}

void RptReportViewer::toggleMaximized()
{
    setWindowState(windowState() ^ Qt::WindowMaximized);
}

// ---- Load and unload

void RptReportViewer::Show()
{
    load();
    if (isVisible())
        ShowOver(nullptr);
    else
        ShowModeless(false);
    ResetFocus(CRViewer1);
}

void RptReportViewer::load()
{
    if (!Report)
        throw Failure(QStringLiteral("There is no report to show."));
    const Hourglass hourglass;
    auto document = std::make_shared<Document>(Report->Format());
    PrintJob job = Report->Job();
    CRViewer1.SetDocument(document);
    CRViewer1.SetZoom(kFirstZoom);
    job_ = std::move(job);
    TxtSearch.SetText(QString());
    LblNote.SetText(QString());
}

void RptReportViewer::unload()
{
    Report.reset();
    CRViewer1.SetDocument(nullptr);
}

void RptReportViewer::RemoveObjectColors()
{
    if (Report)
        TradeForms::RemoveObjectColors(*Report);
}

// ---- What the controls do

void RptReportViewer::attach()
{
    title_->ImgExit().OnClick += [this] { Unload(); };
    title_->ImgMin().OnClick += [this] { Minimize(); };
    connect(this, &Form::Unloaded, this, &RptReportViewer::unload);

    CRViewer1.OnChange += [this] { showPlace(); };
    TxtSearch.OnChange += [this] { search(); };
    BtnPreviousHit.OnClick += [this] { goToHit(false); };
    BtnNextHit.OnClick += [this] { goToHit(true); };
    TxtPage.OnLostFocus += [this] { showPlace(); };
    BtnZoomIn.OnClick += [this] { CRViewer1.ZoomIn(); };
    BtnZoomOut.OnClick += [this] { CRViewer1.ZoomOut(); };
    BtnFitWidth.OnClick += [this] { CRViewer1.FitWidth(); };
    BtnPrint.OnClick += [this] { print(); };
    BtnSavePdf.OnClick += [this] { savePdf(); };
    BtnClose.OnClick += [this] { Unload(); };
}

void RptReportViewer::showPlace()
{
    const int pages = CRViewer1.PageCount();
    if (!IsActive(TxtPage))
        TxtPage.SetText(pages == 0 ? QString() : QString::number(CRViewer1.Page()));
    LblPages.SetText(pages == 0 ? QString() : QStringLiteral("/ %1").arg(pages));
    LblZoom.SetText(QStringLiteral("%1%").arg(CRViewer1.Zoom()));
    title_->SetState(pages == 0 ? QString()
                                : QStringLiteral("page %1 of %2").arg(CRViewer1.Page()).arg(pages));
    showHits();
}

void RptReportViewer::showHits()
{
    const bool searched = !TxtSearch.Text().trimmed().isEmpty();
    const int hits = CRViewer1.HitCount();
    LblHits.SetForeColor(searched && hits == 0 ? Look::Warning() : Look::MutedText());
    LblHits.SetText(!searched   ? QString()
                    : hits == 0 ? notFound()
                                : QStringLiteral("%1 / %2").arg(CRViewer1.Hit()).arg(hits));
}

void RptReportViewer::search()
{
    CRViewer1.Search(TxtSearch.Text());
}

void RptReportViewer::goToHit(bool forward)
{
    if (TxtSearch.Text().trimmed().isEmpty())
        SetFocus(TxtSearch);
    else if (forward)
        CRViewer1.NextHit();
    else
        CRViewer1.PreviousHit();
}

void RptReportViewer::goToTypedPage()
{
    CRViewer1.GoToPage(TxtPage.Text().toInt());
    SetFocus(CRViewer1);
}

void RptReportViewer::print()
{
    LblNote.SetText(QString());
    PrintPort::Current().Print(*CRViewer1.Shown(), job_);
    LblNote.SetText(QStringLiteral("Printed"));
}

void RptReportViewer::savePdf()
{
    LblNote.SetText(QString());
    const QString file = AskWhereToSave(this, {.Title = QStringLiteral("Save as PDF"),
                                               .Name = QFileInfo(job_.Title).fileName(),
                                               .Kind = QStringLiteral("PDF"),
                                               .Suffix = QStringLiteral("pdf")});
    if (file.isEmpty())
        return;
    const Hourglass hourglass;
    CRViewer1.Shown()->WritePdf(file);
    LblNote.SetText(QDir::toNativeSeparators(file));
}

void RptReportViewer::HandlerFailed(const std::exception& failure)
{
    ShowError(this, failure);
}

// ---- Keys

bool RptReportViewer::pressCtrl(int key)
{
    switch (key) {
    case Qt::Key_F:
        SetFocus(TxtSearch);
        TxtSearch.selectAll();
        return true;
    case Qt::Key_G:
        SetFocus(TxtPage);
        TxtPage.selectAll();
        return true;
    case Qt::Key_C:
        if (dynamic_cast<Txt*>(ActiveControl()))
            return false;
        QGuiApplication::clipboard()->setText(CRViewer1.PageText());
        LblNote.SetText(QStringLiteral("Copied the page"));
        return true;
    case Qt::Key_P:
        BtnPrint.Click();
        return true;
    case Qt::Key_S:
        BtnSavePdf.Click();
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        CRViewer1.ZoomIn();
        return true;
    case Qt::Key_Minus:
        CRViewer1.ZoomOut();
        return true;
    case Qt::Key_0:
        CRViewer1.SetZoom(kFirstZoom);
        return true;
    case Qt::Key_1:
        CRViewer1.SetZoom(100);
        return true;
    case Qt::Key_2:
        CRViewer1.FitWidth();
        return true;
    case Qt::Key_PageUp:
        CRViewer1.GoToPage(CRViewer1.Page() - 1);
        return true;
    case Qt::Key_PageDown:
        CRViewer1.GoToPage(CRViewer1.Page() + 1);
        return true;
    case Qt::Key_Home:
        CRViewer1.GoToStart();
        return true;
    case Qt::Key_End:
        CRViewer1.GoToEnd();
        return true;
    default:
        return false;
    }
}

/// Keys that scroll, wherever the focus is; in a field Home and End move the caret.
bool RptReportViewer::pressPaging(int key)
{
    const bool inField = dynamic_cast<Txt*>(ActiveControl()) != nullptr;
    switch (key) {
    case Qt::Key_PageUp:
        CRViewer1.ScrollPage(-1);
        return true;
    case Qt::Key_PageDown:
        CRViewer1.ScrollPage(1);
        return true;
    case Qt::Key_Home:
        if (!inField)
            CRViewer1.GoToPage(CRViewer1.Page());
        return !inField;
    case Qt::Key_End:
        if (!inField)
            CRViewer1.GoToPageEnd();
        return !inField;
    default:
        return false;
    }
}

bool RptReportViewer::pressReturn(const KeyPress& key)
{
    if (IsActive(TxtSearch)) {
        goToHit(!key.Shift.testFlag(Qt::ShiftModifier));
        return true;
    }
    if (IsActive(TxtPage)) {
        goToTypedPage();
        return true;
    }
    auto* pressed = dynamic_cast<JeweledButton*>(ActiveControl());
    return pressed && pressed->Click();
}

void RptReportViewer::FormKeyDown(KeyPress& key)
{
    bool taken = false;
    switch (key.Code) {
    case Qt::Key_Escape:
        Unload();
        taken = true;
        break;
    case Qt::Key_F3:
        goToHit(!key.Shift.testFlag(Qt::ShiftModifier));
        taken = true;
        break;
    case Qt::Key_F11:
        toggleMaximized();
        taken = true;
        break;
    case Qt::Key_Return:
        taken = pressReturn(key);
        break;
    default:
        taken =
            key.Shift.testFlag(Qt::ControlModifier) ? pressCtrl(key.Code) : pressPaging(key.Code);
    }
    if (taken)
        key.Swallow();
    else
        Form::FormKeyDown(key);
}

} // namespace TradeForms
