// Search dialogs, from the key to the painted list, against their raw statement read in full.
//
// Ours begins with the key press at the window and ends when the event loop has nothing left to do:
// the statement is built and read, the list shows it, and the window has painted what changed of it
// into its backing store, as it would for a screen. Beside it stands what a plain table view of the
// toolkit takes to show and paint the same rows: less than that no program can take over the raw
// statement.

#include "Companies.h"
#include "Measure.h"

#include "controls/Look.h"
#include "controls/Utf8.h"
#include "data/Connection.h"
#include "data/sqlite/Adapter.h"
#include "host/HostContext.h"
#include "search/Catalogue.h"
#include "search/SearchWindow.h"
#include "support/Keys.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStringList>
#include <QTableView>
#include <QWindow>
#include <QtTest>

#include <algorithm>
#include <ctime>
#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

using namespace TradeForms;
using benchmark::State;

constexpr double wantedRatio = 1.3;
constexpr double oneFrame = 16e-3; ///< seconds

/// The largest company that is measured, opened by the library and through the C API.
class Company {
public:
    static Company& Largest()
    {
        static Company company(Bench::CompanyOf(
            *std::max_element(Bench::CompanySizes().begin(), Bench::CompanySizes().end())));
        return company;
    }

    std::shared_ptr<Connection> Ours;
    Bench::Raw Raw;
    QString Area; ///< one of about 5,000 accounts

private:
    explicit Company(const QString& file) : Ours(Connection::Open(file)), Raw(file)
    {
        Area = Raw.Text("select AreaCode from (select AreaCode, count(*) as Held from"
                        " InsCustomerHeader group by AreaCode) order by abs(Held - 5000),"
                        " AreaCode limit 1");
    }
};

/// A dialog on the screen, with its list.
class Desk {
public:
    explicit Desk(const SearchDeclaration& description) : dialog_(description)
    {
        HostContext::objCN = Company::Largest().Ours;
    }
    ~Desk()
    {
        window_.reset();
        HostContext::objCN.reset();
    }

    SearchDialog& Dialog() { return dialog_; }
    SearchWindow& Window() { return *window_; }

    void Open()
    {
        window_ = std::make_unique<SearchWindow>(dialog_);
        window_->Load();
        window_->ShowModeless(false);
        Activate(*window_);
        Settle();
    }

    /// Until the list is whole and painted.
    void Settle()
    {
        while (window_->IsReading())
            QCoreApplication::processEvents();
        paint();
    }

    void Key(Qt::Key key) { QTest::keyClick(window_->windowHandle(), key); }

    /// The list's statement as SQLite's own words.
    QByteArray RawStatement() const
    {
        QByteArray text = window_->ListStatement().toUtf8();
        // Functions of the server that a bare database has not, in those that it has.
        for (const auto& [servers, own] :
             std::initializer_list<std::pair<const char*, const char*>>{
                 {"left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1)",
                  "substr(frominscustomerid,1,instr(frominscustomerid,' ')-1)"},
                 {"left(Toinscustomerid,PATINDEX('% %',Toinscustomerid)-1)",
                  "substr(Toinscustomerid,1,instr(Toinscustomerid,' ')-1)"},
                 {"right(frominscustomerid,len(frominscustomerid)-PATINDEX('% "
                  "%',frominscustomerid))",
                  "substr(frominscustomerid,instr(frominscustomerid,' ')+1)"},
                 {"right(Toinscustomerid,len(Toinscustomerid)-PATINDEX('% %',Toinscustomerid))",
                  "substr(Toinscustomerid,instr(Toinscustomerid,' ')+1)"},
                 {"isnull(", "ifnull("}})
            text.replace(servers, own);
        return AdaptStatement(text).Text;
    }

private:
    /// What the event loop would do next.
    void paint()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(window_.get(), QEvent::UpdateRequest);
    }

    SearchDialog dialog_;
    std::unique_ptr<SearchWindow> window_;
};

/// The rows of a dialog's list, in memory.
class PlainRows : public QAbstractTableModel {
public:
    explicit PlainRows(const Grid& list) : columns_(list.Columns())
    {
        for (int row = 0; row < list.RowCount(); ++row) {
            QStringList texts;
            for (const GridColumn& column : columns_)
                texts.append(list.Cell(row, column.Name));
            all_.append(texts);
        }
    }

    void Show(bool all)
    {
        beginResetModel();
        shown_ = all ? all_ : QList<QStringList>();
        endResetModel();
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : int(shown_.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : int(columns_.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return shown_[index.row()][index.column()];
        case Qt::FontRole:
            return columns_[index.column()].Style == StyleSet::ColUrdu ? Look::UrduFont()
                                                                       : Look::LatinFont();
        default:
            return {};
        }
    }

private:
    QList<GridColumn> columns_;
    QList<QStringList> all_;
    QList<QStringList> shown_;
};

/// What it takes, in seconds, until a plain table view in a window of its own has shown and painted
/// the rows of a dialog's list, in the same columns, fonts and room.
double plainViewOf(const Grid& list)
{
    PlainRows rows(list);
    QTableView view;
    view.setModel(&rows);
    view.setLayoutDirection(list.layoutDirection());
    view.setSelectionBehavior(QTableView::SelectRows);
    view.verticalHeader()->hide();
    view.verticalHeader()->setDefaultSectionSize(list.verticalHeader()->defaultSectionSize());
    for (int column = 0; column < rows.columnCount(); ++column)
        view.setColumnWidth(column, list.columnWidth(column));
    view.resize(list.size());
    view.show();
    std::vector<qint64> times;
    for (int repetition = 0; repetition < 9; ++repetition) {
        rows.Show(false);
        QCoreApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        rows.Show(true);
        view.selectRow(0);
        QCoreApplication::processEvents();
        times.push_back(timer.nsecsElapsed());
    }
    std::sort(times.begin(), times.end());
    return double(times[times.size() / 2]) / 1e9;
}

/// Times one step of each iteration by hand, by the clock and by the processor.
template <class Prepare, class Step> void timed(State& state, Prepare prepare, Step step)
{
    std::clock_t processor = 0;
    for (auto _ : state) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        const std::clock_t before = std::clock();
        step();
        processor += std::clock() - before;
        state.SetIterationTime(double(timer.nsecsElapsed()) / 1e9);
    }
    state.counters["processor"] = double(processor) / CLOCKS_PER_SEC / double(state.max_iterations);
}

void registerTimed(const std::string& name, void (*work)(State&, const SearchDeclaration&, bool),
                   const SearchDeclaration& description, int iterations)
{
    for (const bool ours : {true, false}) {
        benchmark::RegisterBenchmark(
            (name + (ours ? "/ours" : "/baseline")).c_str(),
            [=, &description](State& state) { work(state, description, ours); })
            ->Iterations(iterations)
            ->Repetitions(5)
            ->UseManualTime();
    }
}

// ---- From the key to the painted list

/// The first field that narrows by query.
Txt* queryField(SearchWindow& window, const SearchDeclaration& description)
{
    for (const SearchField& field : description.Fields)
        if (field.Kind == SearchField::Type::QueryAgain)
            return &window.NarrowingField(field.Name);
    return nullptr;
}

/// The key that empties the field (or F12), so that the list is the whole of its range.
void keyToList(State& state, const SearchDeclaration& description, bool ours)
{
    Desk desk(description);
    if (&description == &SchCustomer())
        desk.Dialog().SetParaIn("ParaInAreaCode", Company::Largest().Area);
    desk.Open();
    const QByteArray statement = desk.RawStatement();
    if (!ours) {
        const Bench::Raw& raw = Company::Largest().Raw;
        timed(
            state, [] {}, [&] { raw.ReadAll(statement); });
        return;
    }
    Txt* field = queryField(desk.Window(), description);
    Bench::LimitRatio(state, wantedRatio);
    timed(
        state,
        [&] {
            if (field) {
                desk.Window().ResetFocus(*field);
                field->SetText(utf8("Q"));
                desk.Settle();
                desk.Key(Qt::Key_End);
            }
        },
        [&] {
            desk.Key(field ? Qt::Key_Backspace : Qt::Key_F12);
            desk.Settle();
        });
    state.counters["about"] = desk.Window().List().RowCount();
    state.counters["plain_view"] = plainViewOf(desk.Window().List());
}

/// A letter typed into the name, against the statement that it makes.
void letterToList(State& state, const SearchDeclaration& description, bool ours)
{
    Desk desk(description);
    desk.Dialog().SetParaIn("ParaInAreaCode", Company::Largest().Area);
    desk.Open();
    Txt& name = desk.Window().NarrowingField("TxtName");
    desk.Window().ResetFocus(name);
    const auto type = [&] {
        Type(desk.Window(), utf8("م"));
        desk.Settle();
    };
    if (!ours) {
        type();
        const QByteArray statement = desk.RawStatement();
        timed(
            state, [] {}, [&] { Company::Largest().Raw.ReadAll(statement); });
        return;
    }
    Bench::LimitRatio(state, wantedRatio);
    timed(
        state,
        [&] {
            name.SetText(QString());
            desk.Settle();
        },
        type);
    state.counters["about"] = desk.Window().List().RowCount();
    state.counters["plain_view"] = plainViewOf(desk.Window().List());
}

// ---- All accounts of all areas

void wholeList(State& state, const SearchDeclaration& description, bool ours)
{
    Desk desk(description);
    desk.Open();
    const QByteArray statement = desk.RawStatement();
    if (!ours) {
        timed(
            state, [] {}, [&] { Company::Largest().Raw.ReadAll(statement); });
        return;
    }
    Txt& name = desk.Window().NarrowingField("TxtName");
    timed(
        state,
        [&] {
            desk.Window().ResetFocus(name);
            name.SetText(utf8("Q"));
            desk.Settle();
            QTest::qWait(250); // the user has stopped typing
            desk.Key(Qt::Key_End);
        },
        [&] {
            desk.Key(Qt::Key_Backspace);
            desk.Settle();
        });
    state.counters["about"] = desk.Window().List().RowCount();
}

/// The longest that one of ten letters, typed at a brisk pace while the list is read, waits until
/// it stands in the field. Without reading in pieces it would wait for the whole list.
void typingInWholeList(State& state, const SearchDeclaration& description, bool ours)
{
    if (!ours) {
        wholeList(state, description, false);
        return;
    }
    Desk desk(description);
    desk.Open();
    Txt& name = desk.Window().NarrowingField("TxtName");
    for (auto _ : state) {
        name.SetText(QString());
        desk.Settle();
        desk.Window().ResetFocus(name);
        qint64 longest = 0;
        for (int letter = 0; letter < 10; ++letter) {
            QElapsedTimer pause;
            pause.start();
            while (pause.elapsed() < 120)
                QCoreApplication::processEvents();
            // It comes in at a moment of its own, while a piece is being read or not.
            QElapsedTimer waiting;
            waiting.start();
            QCoreApplication::processEvents();
            Type(desk.Window(), utf8("م"));
            longest = std::max(longest, waiting.nsecsElapsed());
        }
        if (name.Text().size() != 10)
            state.SkipWithError("a letter is lost");
        desk.Settle();
        state.SetIterationTime(double(longest) / 1e9);
    }
}

double residentBytes()
{
    QFile status(utf8("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').front().toDouble() * 1024;
    return 0;
}

/// What the list takes in memory, against the bytes of its values.
void memoryOfWholeList(State& state, const SearchDeclaration& description, bool ours)
{
    for (auto _ : state) {
        if (ours) {
            {
                Desk fonts(SchBranch()); // what the first window of all needs
                fonts.Dialog().SetParaIn("ParaInBranchCode", utf8("0"));
                fonts.Open();
            }
#ifdef __GLIBC__
            malloc_trim(0);
#endif
            const double before = residentBytes();
            Desk desk(description);
            desk.Open();
            state.counters["memory"] = residentBytes() - before;
        } else {
            state.counters["memory"] = double(Company::Largest().Raw.Number(
                "select sum(length(cast(AreaCode as blob)) + length(cast(InsCustomerID as blob))"
                " + length(cast(CardNo as blob)) + ifnull(length(cast(Name as blob)), 0)"
                " + ifnull(length(cast(FName as blob)), 0)"
                " + ifnull(length(cast(PAddress as blob)), 0)) from InsCustomerHeader"));
        }
        state.SetIterationTime(1);
    }
}

// ---- Moving in a long list

/// A jump that looks at every row of a hundred thousand.
void jump(State& state, const SearchDeclaration& description, bool ours)
{
    if (!ours) {
        const QByteArray statement = "select CardNo from InsCustomerHeader where rowid <= 100000";
        timed(
            state, [] {}, [&] { Company::Largest().Raw.ReadAll(statement); });
        return;
    }
    static const SearchDeclaration hundredThousand = [&] {
        SearchDeclaration is = description;
        is.Statement.replace("where 1=1", "where rowid <= 100000");
        return is;
    }();
    Desk desk(hundredThousand);
    desk.Open();
    Bench::LimitTime(state, oneFrame);
    Txt& card = desk.Window().NarrowingField("TxtID");
    timed(
        state,
        [&] {
            card.SetText(QString());
            desk.Window().ResetFocus(card);
            desk.Settle();
        },
        [&] {
            Type(desk.Window(), utf8("x"));
            desk.Settle();
        });
    state.counters["about"] = desk.Window().List().RowCount();
}

/// One page further, against the same in a list of an area.
void page(State& state, const SearchDeclaration& description, bool ours)
{
    Desk desk(description);
    if (!ours)
        desk.Dialog().SetParaIn("ParaInAreaCode", Company::Largest().Area);
    else
        Bench::LimitTime(state, oneFrame);
    desk.Open();
    desk.Window().ResetFocus(desk.Window().List());
    timed(
        state, [] {},
        [&] {
            desk.Key(Qt::Key_PageDown);
            desk.Settle();
        });
    state.counters["about"] = desk.Window().List().RowCount();
}

const bool registered = [] {
    if (Bench::CompanySizes().empty())
        return false;
    registerTimed("customers of an area, emptied field", keyToList, SchCustomer(), 5);
    registerTimed("customers of an area, a letter", letterToList, SchCustomer(), 5);
    for (const SearchDeclaration* list :
         {&SchGatePass(), &SchInsCustomer(), &SchPartnershipProfit(), &SchRecoveryVoucher(),
          &SchRecoveryVoucherDetail(), &SchConcessionVoucher(), &SchReturnVoucher(),
          &SchWorkerParts(), &SchConvertArea()})
        registerTimed(std::string(list->Name) + ", default range", keyToList, *list, 3);
    registerTimed("customers of all areas", wholeList, SchCustomer(), 1);
    registerTimed("longest wait of a letter meanwhile", typingInWholeList, SchCustomer(), 1);
    registerTimed("memory of the customers of all areas", memoryOfWholeList, SchCustomer(), 1);
    registerTimed("jump in a list of 100,000", jump, SchCustomer(), 10);
    registerTimed("a page further, all areas against one", page, SchCustomer(), 20);
    return true;
}();

} // namespace
