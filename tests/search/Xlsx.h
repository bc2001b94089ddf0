#pragma once

#include <QHash>
#include <QString>

namespace tests {

/// A spreadsheet file, read back past the library that wrote it.
class Xlsx {
public:
    struct Cell {
        QString Type;   ///< as the sheet says: "inlineStr" for a text, "" for a number
        QString Text;   ///< of a text, or the number's digits
        QString Format; ///< number format, "" for the general one
        bool Bold = false;
    };

    /// A file that is none fails the test.
    explicit Xlsx(const QString& file);

    /// "B3"; one without a type and text where there is none.
    Cell At(const QString& place) const { return cells_.value(place); }
    int RowCount() const { return rows_; }
    /// Raw text of a part: "xl/workbook.xml".
    QString Part(const QString& name) const;

private:
    struct Style {
        QString Format;
        bool Bold = false;
    };

    void readStyles();
    void readSheet();

    QString file_;
    QList<Style> styles_;
    QHash<QString, Cell> cells_;
    int rows_ = 0;
};

} // namespace tests
