#include "CareWindow.h"

#include "HostLook.h"
#include "HostSchema.h"

#include <TradeForms/Backup.h>
#include <TradeForms/Connection.h>
#include <TradeForms/Transfer.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QProgressBar>
#include <QStandardPaths>

namespace Host {

using namespace TradeForms;

namespace {

struct StageText {
    QString Urdu;
    QString English;
};

StageText textOf(Stage stage)
{
    switch (stage) {
    case Stage::Counting:
        return {QString::fromUtf8("گنتی"), QStringLiteral("Counting rows")};
    case Stage::Copying:
        return {QString::fromUtf8("نقل"), QStringLiteral("Copying")};
    case Stage::Indexing:
        return {QString::fromUtf8("اشاریے"), QStringLiteral("Making indexes")};
    case Stage::Checking:
        return {QString::fromUtf8("جانچ"), QStringLiteral("Checking the copy")};
    case Stage::Comparing:
        return {QString::fromUtf8("موازنہ"), QStringLiteral("Comparing")};
    case Stage::Balances:
        return {QString::fromUtf8("بقایا کا موازنہ"), QStringLiteral("Comparing balances")};
    }
    Q_UNREACHABLE();
}

QString grouped(qint64 number)
{
    return QLocale(QLocale::English).toString(number);
}

/// In the user's own folder: the company's disk may be the one that fails.
QString backupProposal(const QString& database)
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return QDir::toNativeSeparators(
        folder.filePath(BackupName(database, QDateTime::currentDateTime())));
}

QString listOf(const QList<TransferDifference>& differences)
{
    QStringList lines;
    for (const TransferDifference& difference : differences)
        lines.append(difference.Text());
    return lines.join(QLatin1Char('\n'));
}

QString move(const QString& database, const QString& place, const OnProgress& onProgress)
{
    TransferOptions options;
    options.Tell = onProgress;
    if (!IsConnectionString(place)) {
        // The script that makes a company on a server makes this host's tables as well.
        options.Prepare = EnsureHostSchema;
    }
    const TransferReport report = TransferCompany(database, place, options);
    if (!report.IsProven()) {
        throw Failure(QStringLiteral("The company was copied, and the proof found that it is not "
                                     "the same. Do not work in the new one.\n\n") +
                      listOf(report.Differences));
    }
    QString text =
        QStringLiteral("%1 rows in %2 tables are there, with the same sums and "
                       "contents, and the same balance on each of %3 accounts.\n\nWhat "
                       "is entered here from now on is not there. Let everybody log in "
                       "to the new place.")
            .arg(grouped(report.Rows()), grouped(report.Tables.size()), grouped(report.Accounts));
    if (!report.Rounded.isEmpty())
        text += QStringLiteral("\n\nRounded to four decimals:\n") + listOf(report.Rounded);
    return text;
}

} // namespace

CareTask BackupTask(const QString& database)
{
    CareTask task;
    task.Name = QStringLiteral("BackupWindow");
    task.Urdu = QString::fromUtf8("بیک اپ");
    task.English = QStringLiteral("Back up");
    task.PlaceUrdu = QString::fromUtf8("فائل");
    task.PlaceEnglish = QStringLiteral("Backup file");
    task.Proposal = backupProposal(database);
    task.Explanation = QStringLiteral("Everybody can go on working. The backup holds the company "
                                      "as it stands now. Keep it on another disk.");
    task.Choose = [](QWidget* parent, const QString& present) {
        return QFileDialog::getSaveFileName(parent, QStringLiteral("Back up"), present,
                                            QStringLiteral("Company (*.db)"), nullptr,
                                            QFileDialog::DontConfirmOverwrite);
    };
    task.Work = [database](const QString& place, const OnProgress& onProgress) {
        const VerifiedCompany copy = BackUpCompany(database, place, Existing::Keep, onProgress);
        return QStringLiteral("The backup is whole: %1 rows in %2 tables, %3.\n\n%4")
            .arg(grouped(copy.Rows()), grouped(copy.Tables.size()),
                 QLocale(QLocale::English).formattedDataSize(copy.Bytes),
                 QDir::toNativeSeparators(copy.File));
    };
    return task;
}

CareTask MoveTask(const QString& database)
{
    CareTask task;
    task.Name = QStringLiteral("MoveWindow");
    task.Urdu = QString::fromUtf8("سرور پر منتقل");
    task.English = QStringLiteral("Move to a server");
    task.PlaceUrdu = QString::fromUtf8("سرور");
    task.PlaceEnglish = QStringLiteral("Connection string");
    task.Hint = QStringLiteral("DSN=Company;UID=...;PWD=...");
    task.Explanation = QStringLiteral("Copies the whole company into an empty one on a server and "
                                      "proves that all of it arrived. Let nobody enter anything "
                                      "until it is done. This company stays as it is.");
    task.Work = [database](const QString& place, const OnProgress& onProgress) {
        return move(database, place, onProgress);
    };
    return task;
}

CareWindow::CareWindow(CareTask task, QWidget* parent)
    : QDialog(parent), task_(std::move(task)), work_(this)
{
    setObjectName(task_.Name);
    setWindowTitle(task_.English);
    Look::Dress(this);
    build();

    connect(btnStart_, &QPushButton::clicked, this, &CareWindow::start);
    connect(btnClose_, &QPushButton::clicked, this, &CareWindow::reject);
    connect(&work_, &BackgroundWork::Advanced, this, &CareWindow::advance);
    connect(&work_, &BackgroundWork::Done, this, &CareWindow::done);
    connect(&work_, &BackgroundWork::Failed, this, &CareWindow::failed);
    connect(&work_, &BackgroundWork::Stopped, this, &CareWindow::stopped);
    setRunning(false);
    txtPlace_->setFocus();
}

void CareWindow::build()
{
    txtPlace_ = new QLineEdit(task_.Proposal, this);
    txtPlace_->setObjectName(QStringLiteral("TxtPlace"));
    txtPlace_->setAccessibleName(task_.PlaceEnglish);
    txtPlace_->setPlaceholderText(task_.Hint);
    txtPlace_->setMinimumWidth(360);
    // Paths and connection strings are Latin.
    txtPlace_->setLayoutDirection(Qt::LeftToRight);

    auto* place = new QHBoxLayout;
    place->setSpacing(8);
    place->addWidget(txtPlace_, 1);
    if (task_.Choose) {
        btnChoose_ = new CaptionButton(QString::fromUtf8("منتخب"), QStringLiteral("Choose"), this);
        btnChoose_->setObjectName(QStringLiteral("BtnChoose"));
        connect(btnChoose_, &QPushButton::clicked, this, &CareWindow::choose);
        place->addWidget(btnChoose_);
    }

    auto* explanation = new QLabel(task_.Explanation, this);
    explanation->setWordWrap(true);
    explanation->setLayoutDirection(Qt::LeftToRight);
    explanation->setStyleSheet(QStringLiteral("color: %1").arg(Look::MutedText().name()));

    bar_ = new QProgressBar(this);
    bar_->setObjectName(QStringLiteral("Bar"));
    bar_->setTextVisible(false);
    bar_->setFixedHeight(12);
    bar_->setStyleSheet(QStringLiteral("QProgressBar { background: white; border: 1px solid %1;"
                                       " border-radius: 3px; }"
                                       "QProgressBar::chunk { background: %2; }")
                            .arg(Look::Border().name(), Look::Accent().name()));
    lblStageUrdu_ = Look::UrduLabel({}, Look::Urdu(), this);
    lblStage_ = new QLabel(this);
    lblStage_->setObjectName(QStringLiteral("LblStage"));
    lblStage_->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
    auto* stage = new QHBoxLayout;
    stage->addWidget(lblStageUrdu_, 1);
    stage->addWidget(lblStage_, 2);

    auto* grid = new QGridLayout;
    grid->setContentsMargins(20, 14, 20, 4);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->addWidget(Look::FieldCaption(task_.PlaceUrdu, task_.PlaceEnglish, this), 0, 0);
    grid->addLayout(place, 0, 1);
    grid->addWidget(explanation, 1, 0, 1, 2);
    grid->addWidget(bar_, 2, 0, 1, 2);
    grid->addLayout(stage, 3, 0, 1, 2);
    grid->setColumnStretch(1, 1);

    btnStart_ = new CaptionButton(QString::fromUtf8("شروع"), QStringLiteral("Start Enter"), this);
    btnStart_->setObjectName(QStringLiteral("BtnStart"));
    btnStart_->setDefault(true);
    btnClose_ = new CaptionButton(QString::fromUtf8("بند"), QStringLiteral("Close Esc"), this);
    btnClose_->setObjectName(QStringLiteral("BtnClose"));
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(20, 4, 20, 12);
    buttons->addWidget(btnStart_);
    buttons->addStretch();
    buttons->addWidget(btnClose_);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(new TitleStrip(task_.Urdu, task_.English, {}, this));
    column->addLayout(grid);
    column->addLayout(buttons);
}

void CareWindow::setRunning(bool isRunning)
{
    txtPlace_->setEnabled(!isRunning);
    btnStart_->setEnabled(!isRunning);
    if (btnChoose_)
        btnChoose_->setEnabled(!isRunning);
    btnClose_->SetEnglish(isRunning ? QStringLiteral("Stop Esc") : QStringLiteral("Close Esc"));
    bar_->setRange(0, 100);
    bar_->setValue(0);
    lblStageUrdu_->clear();
    lblStage_->clear();
    if (isRunning)
        btnClose_->setFocus();
}

void CareWindow::choose()
{
    const QString chosen = task_.Choose(this, txtPlace_->text());
    if (!chosen.isEmpty())
        txtPlace_->setText(QDir::toNativeSeparators(chosen));
}

void CareWindow::start()
{
    const QString place = txtPlace_->text().trimmed();
    if (place.isEmpty()) {
        txtPlace_->setFocus();
        return;
    }
    setRunning(true);
    work_.Start([work = task_.Work, place](const OnProgress& onProgress) {
        return work(place, onProgress);
    });
}

void CareWindow::advance(const WorkProgress& progress)
{
    if (!work_.IsRunning())
        return;
    const StageText text = textOf(progress.At);
    lblStageUrdu_->setText(text.Urdu);
    lblStage_->setText(progress.At == Stage::Counting ? text.English
                                                      : text.English + u' ' + progress.Table);
    // A bar without a range shows an endless animation.
    bar_->setRange(0, progress.All == 0 ? 0 : 100);
    bar_->setValue(progress.All == 0 ? 0 : int(100 * progress.Done / progress.All));
}

void CareWindow::reject()
{
    if (work_.IsRunning()) {
        work_.Stop();
        return;
    }
    QDialog::reject();
}

void CareWindow::done(const QString& text)
{
    bar_->setRange(0, 100);
    bar_->setValue(100);
    QMessageBox::information(this, task_.English, text);
    accept();
}

void CareWindow::failed(const QString& text)
{
    setRunning(false);
    QMessageBox::critical(this, task_.English, text);
    txtPlace_->setFocus();
}

void CareWindow::stopped()
{
    setRunning(false);
    lblStageUrdu_->setText(QString::fromUtf8("روک دیا گیا"));
    lblStage_->setText(QStringLiteral("Stopped"));
    txtPlace_->setFocus();
}

} // namespace Host
