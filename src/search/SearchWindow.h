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

/// The window of a search dialog; a new one each time the dialog is shown.
class SearchWindow : public Form {
    Q_OBJECT
public:
    explicit SearchWindow(SearchDialog& dialog);
    ~SearchWindow() override;

    /// Empties the result and reads the list, a long one in chunks. Raises what reading raises.
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
    /// Whether a long list is still being read; the list shown is the previous one.
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
    Recordset readForRow(const QByteArray& statement) const;
    void showRow();
    void select();
    void closeWithoutResult();
    ExportList exportList() const;

    SearchDialog& dialog_;
    const SearchDeclaration& declaration_;
    BoundRows list_;
    BoundRows lines_;
    QString listStatement_;
    bool loading_ = false;                 ///< the list being read is the first of this window
    std::optional<Narrowing> pendingJump_; ///< deferred until the list is complete
    bool showingRange_ = false;            ///< set while the program itself sets the pickers
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
