#pragma once

#include "controls/Buttons.h"
#include "controls/DTPicker.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/Pieces.h"
#include "controls/Txt.h"
#include "data/Recordset.h"
#include "search/SearchDialog.h"

#include <memory>
#include <vector>

namespace TradeForms {

/// One showing of a search dialog, from its load to its unload.
class SearchWindow : public Form, private GridSource {
    Q_OBJECT
public:
    explicit SearchWindow(SearchDialog& dialog);
    ~SearchWindow() override;

    /// Reads the list and empties the result.
    void Load();

    Grid& List() { return *grid_; }
    Txt& NarrowingField(const char* name);
    DTPicker* DtpFrom() { return dtpFrom_; }
    DTPicker* DtpTo() { return dtpTo_; }
    JeweledButton& BtnSelect() { return *btnSelect_; }
    JeweledButton& BtnClose() { return *btnClose_; }
    JeweledButton* BtnFilter() { return btnFilter_; }
    TitleStrip& Title() { return *title_; }
    /// The text of the statement that was read last.
    const QString& ListStatement() const { return listStatement_; }

protected:
    void FormKeyDown(KeyPress& key) override;
    void HandlerFailed(const std::exception& failure) override;

private:
    struct Narrowing {
        const SearchField* Is;
        Txt* Field;
    };

    void compose();
    QWidget* composeFields();
    void attach();
    Txt& jumpField();
    Statement buildStatement() const;
    void loadList();
    void jump(const Narrowing& narrowing);
    void jumpTo(int row);
    void select();
    void leaveEmpty();

    int RowCount() const override;
    QString Text(int row, int column) const override;

    SearchDialog& dialog_;
    const SearchDescription& is_;
    Recordset list_;
    QString listStatement_;
    std::vector<int> fieldOfColumn_;
    std::vector<Narrowing> narrowings_;
    DTPicker* dtpFrom_ = nullptr;
    DTPicker* dtpTo_ = nullptr;
    Grid* grid_ = nullptr;
    JeweledButton* btnSelect_ = nullptr;
    JeweledButton* btnClose_ = nullptr;
    JeweledButton* btnFilter_ = nullptr;
    TitleStrip* title_ = nullptr;
};

} // namespace TradeForms
