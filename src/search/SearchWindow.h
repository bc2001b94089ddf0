#pragma once

#include "controls/Buttons.h"
#include "controls/DTPicker.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/Pieces.h"
#include "controls/Txt.h"
#include "search/BoundRows.h"
#include "search/ListMenu.h"
#include "search/ListReader.h"
#include "search/SearchDialog.h"

#include <optional>
#include <vector>

namespace TradeForms {

/// One showing of a search dialog, from its load to its unload.
class SearchWindow : public Form {
    Q_OBJECT
public:
    explicit SearchWindow(SearchDialog& dialog);
    ~SearchWindow() override;

    /// Reads the list, or begins to where it is a long one, and empties the result.
    void Load();

    Grid& List() { return *grid_; }
    Grid* GridDetail() { return gridDetail_; }
    Label* LblBalance() { return lblBalance_; }
    Label* LblTotalCards() { return lblTotalCards_; }
    Txt& NarrowingField(const char* name);
    DTPicker* DtpFrom() { return dtpFrom_; }
    DTPicker* DtpTo() { return dtpTo_; }
    JeweledButton& BtnSelect() { return *btnSelect_; }
    JeweledButton& BtnClose() { return *btnClose_; }
    JeweledButton* BtnFilter() { return btnFilter_; }
    TitleStrip& Title() { return *title_; }
    /// Whether a long list is still being read; the one on the screen is the one before.
    bool IsReading() const { return reader_.IsReading(); }
    /// The text of the statement that was read last.
    const QString& ListStatement() const { return listStatement_; }

protected:
    void FormKeyDown(KeyPress& key) override;
    void HandlerFailed(const std::exception& failure) override;

private:
    struct DateRange {
        QDate From;
        QDate To;
    };
    struct Narrowing {
        const SearchField* Declared;
        Txt* Field;
    };

    void compose();
    QWidget* composeFields();
    QLayout* composeLists();
    void attach();
    Txt& firstField();
    DateRange range() const;
    void showRange();
    Statement buildStatement() const;
    void loadList();
    void showList(Recordset rows, const QString& statement);
    void showCount();
    void jump(const Narrowing& narrowing);
    void jumpTo(int row);
    Recordset readAboutRow(const QByteArray& statement) const;
    void showRow();
    void select();
    void leaveEmpty();
    ExportList exported() const;

    SearchDialog& dialog_;
    const SearchDeclaration& declaration_;
    BoundRows list_;
    BoundRows lines_;
    QString listStatement_;
    bool loading_ = false;              ///< the list is the first one of this showing
    std::optional<Narrowing> owedJump_; ///< to be made in the list that is being read
    bool showingRange_ = false;         ///< the program sets the pickers, on the way to a read
    std::vector<Narrowing> narrowings_;
    DTPicker* dtpFrom_ = nullptr;
    DTPicker* dtpTo_ = nullptr;
    Grid* grid_ = nullptr;
    Grid* gridDetail_ = nullptr;
    Label* lblBalance_ = nullptr;
    Label* lblTotalCards_ = nullptr;
    JeweledButton* btnSelect_ = nullptr;
    JeweledButton* btnClose_ = nullptr;
    JeweledButton* btnFilter_ = nullptr;
    TitleStrip* title_ = nullptr;
    ListReader reader_;
    ListMenu menu_;
};

} // namespace TradeForms
