#pragma once

#include "data/Recordset.h"
#include "reports/Document.h"
#include "reports/ReportDeclaration.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

#include <memory>

namespace tests {

using namespace TradeForms;

/// A page of 1000 by 1000 in all between its margins, for tests of the layout: strips of one
/// object each, named as their kind. Details are 100 high, a page header and footer 50 each.
ReportDeclaration PlainDesign();
/// The first section of a kind.
ReportSection& SectionOf(ReportDeclaration& declaration, SectionKind kind);
/// A section with one field, or one text, over its whole width.
ReportSection FieldSection(SectionKind kind, const char* name, double height, ReportSource source);
ReportSection TextSection(SectionKind kind, const char* name, double height, const char* text);
ReportSource ColumnSource(const char* column);

/// Rows of any statement, from a company's database.
std::shared_ptr<Recordset> RowsOf(const std::shared_ptr<Connection>& connection,
                                  const QString& statement);
/// Rows n = 1 … count, with g = (n - 1) / inGroup and amount = n * 0.5.
QString Counted(int count, int inGroup = 1000000);

/// The texts of a page, in the order of drawing, each as "name: text".
QStringList Shown(const Document& document, int page);
/// The runs of an object on a page, or on all pages.
QList<TextRun> RunsOf(const Document& document, int page, const QString& object);
QList<TextRun> RunsOf(const Document& document, const QString& object);
/// The text of an object's only run in the document; a failure where there is not just one.
QString Only(const Document& document, const char* object);

} // namespace tests
