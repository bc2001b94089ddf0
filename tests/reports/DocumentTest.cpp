// What is drawn of a page: the ink at the places of its primitives.

#include "reports/Document.h"
#include "data/Connection.h"
#include "data/Failure.h"
#include "reports/Designs.h"
#include "reports/Paginator.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QTemporaryDir>

namespace tests {

namespace {

class DocumentTest : public ::testing::Test {
protected:
    DocumentTest()
    {
        design.Sections = {FieldSection(SectionKind::Details, "Row", 400, ColumnSource("n"))};
        object().Place = QRectF(0, 300, 500, 100);
    }

    ReportObject& object() { return design.Sections.first().Objects.first(); }
    ReportObject& add(ObjectKind kind, const QRectF& place)
    {
        ReportObject made;
        made.Kind = kind;
        made.Place = place;
        design.Sections.first().Objects.append(made);
        return design.Sections.first().Objects.last();
    }
    Document layOut(const QString& statement = Counted(1))
    {
        return Document(
            std::make_unique<Paginator>(ReportState{design,
                                                    RowsOf(connection, statement),
                                                    {},
                                                    s("Plain"),
                                                    QDateTime(QDate(2026, 3, 5), QTime(14, 5)),
                                                    s("7")}));
    }
    /// A page at a pixel for a tenth of a millimetre, from the left top of what is printed on.
    QImage painted(const Document& document, int page = 0) const
    {
        QImage image(1000, 1000, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(-design.Margins.left(), -design.Margins.top());
        document.Paint(painter, page);
        return image;
    }
    static int darkIn(const QImage& image, const QRect& place)
    {
        int dark = 0;
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
        return dark;
    }

    TestCompany company;
    std::shared_ptr<Connection> connection = company.Connect();
    ReportDeclaration design = PlainDesign();
};

} // namespace

TEST_F(DocumentTest, ATextIsDrawnInItsPlaceAndColour)
{
    object().Color = QColor(0, 0, 200);
    const QImage page = painted(layOut(s("select '8888' as n")));
    EXPECT_GT(darkIn(page, QRect(0, 300, 100, 100)), 100);
    EXPECT_EQ(darkIn(page, QRect(0, 0, 1000, 300)), 0);
    EXPECT_EQ(darkIn(page, QRect(120, 300, 880, 600)), 0);
    int blue = 0;
    for (int y = 300; y < 400; ++y)
        for (int x = 0; x < 100; ++x)
            blue += page.pixelColor(x, y) == QColor(0, 0, 200) ? 1 : 0;
    EXPECT_GT(blue, 20);
}

TEST_F(DocumentTest, ALineIsAsBroadAsItsDesignSays)
{
    add(ObjectKind::Line, QRectF(QPointF(100, 50), QPointF(900, 50))).LineWidth = 10;
    add(ObjectKind::Line, QRectF(QPointF(100, 150), QPointF(900, 150))).LineWidth = 2;
    const QImage page = painted(layOut());
    EXPECT_EQ(darkIn(page, QRect(500, 0, 1, 100)), 10);
    EXPECT_EQ(darkIn(page, QRect(500, 100, 1, 100)), 2);
    EXPECT_EQ(page.pixelColor(50, 50), QColor(Qt::white));
    EXPECT_EQ(page.pixelColor(950, 50), QColor(Qt::white));
}

TEST_F(DocumentTest, ABoxHasItsGroundAndItsFrame)
{
    ReportObject& box = add(ObjectKind::Box, QRectF(100, 50, 300, 100));
    box.FillColor = 0x0000ff; // red stands in the low byte
    box.LineWidth = 4;
    add(ObjectKind::Box, QRectF(600, 50, 300, 100)).LineWidth = 4;
    const QImage page = painted(layOut());
    EXPECT_EQ(page.pixelColor(250, 100), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(250, 49), QColor(Qt::black));
    EXPECT_EQ(page.pixelColor(250, 40), QColor(Qt::white));
    EXPECT_EQ(page.pixelColor(750, 100), QColor(Qt::white));
    EXPECT_EQ(page.pixelColor(750, 49), QColor(Qt::black));
}

TEST_F(DocumentTest, APictureKeepsItsProportionsInTheMiddleOfItsPlace)
{
    const QTemporaryDir folder;
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString file = folder.filePath(s("logo.png"));
    ASSERT_TRUE(picture.save(file));
    add(ObjectKind::Picture, QRectF(100, 50, 200, 200)).Picture = file;
    const QImage page = painted(layOut());
    EXPECT_EQ(page.pixelColor(200, 150), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(110, 150), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(290, 150), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(200, 80), QColor(Qt::white));
    EXPECT_EQ(page.pixelColor(200, 220), QColor(Qt::white));
}

TEST_F(DocumentTest, EachPageIsDrawnByItself)
{
    object().Place = QRectF(0, 0, 500, 100);
    design.Sections.first().Height = 600;
    const Document document = layOut(s("select '1' as n union all select '8888888888'"));
    ASSERT_EQ(document.PageCount(), 2);
    const QImage first = painted(document, 0);
    const QImage second = painted(document, 1);
    EXPECT_GT(darkIn(first, QRect(0, 0, 60, 100)), 10);
    EXPECT_EQ(darkIn(first, QRect(100, 0, 400, 100)), 0);
    EXPECT_GT(darkIn(second, QRect(100, 0, 400, 100)), 10);
    QImage none(10, 10, QImage::Format_RGB32);
    QPainter painter(&none);
    EXPECT_THROW(document.Paint(painter, 2), Failure);
}

} // namespace tests
