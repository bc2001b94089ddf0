#include "entry/Forms.h"

#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "entry/Windows.h"
#include "host/HostContext.h"
#include "reports/CrpGatePassDetail.h"
#include "reports/Document.h"
#include "stock/FrmGatePass.h"
#include "stock/FrmStockInDetail.h"
#include "stock/StockForm.h"
#include "support/ExpectedBoxes.h"
#include "support/FakeUser.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>

namespace tests {

using namespace TradeForms;

namespace {

class FormsTest : public ::testing::Test {
protected:
    FormsTest()
    {
        forms.InitializeClass(company.Connect());
        forms.InitializeSecurity(user);
        forms.InitializeLogo(QString(), QString());
        forms.InitializeServer(false);
    }
    ~FormsTest() override
    {
        closeAll();
        HostContext::objCN.reset();
        HostContext::objSec.reset();
        HostContext::ServerMode = false;
        HostContext::LogoImage.clear();
        HostContext::NameUrdu.clear();
    }

    template <class TheForm> static QList<TheForm*> windows()
    {
        QList<TheForm*> found;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* form = qobject_cast<TheForm*>(window))
                found.append(form);
        return found;
    }
    static QList<FrmGatePass*> open() { return windows<FrmGatePass>(); }

    static QString pictureIn(const QTemporaryDir& folder)
    {
        const QString file = folder.filePath(QStringLiteral("logo.png"));
        QImage picture(40, 20, QImage::Format_RGB32);
        picture.fill(Qt::red);
        EXPECT_TRUE(picture.save(file));
        return file;
    }
    /// How many pictures a report's first page has, and the name of the company on it.
    static std::pair<int, QString> headOfAReport()
    {
        auto rows = std::make_shared<Recordset>();
        rows->Open(CrpGatePassDetail::Source(QStringLiteral("1")), HostContext::Database());
        CrpGatePassDetail report;
        report.SetDataSource(rows);
        const Document document = report.Format();
        std::pair<int, QString> head(0, QString());
        for (const Primitive& primitive : document.PageAt(0).Primitives) {
            head.first += std::holds_alternative<PictureShape>(primitive) ? 1 : 0;
            const auto* run = std::get_if<TextRun>(&primitive);
            if (run && run->Object == QStringLiteral("TxtNameUrdu"))
                head.second = run->Text;
        }
        return head;
    }
    static void closeAll() { qDeleteAll(windows<Form>()); }

    TestCompany company;
    std::shared_ptr<FakeUser> user = std::make_shared<FakeUser>();
    Forms forms;
};

} // namespace

TEST_F(FormsTest, GatePassFormCalledTwiceGivesTwoWindowsWithSeparateState)
{
    forms.GatePassForm();
    forms.GatePassForm();
    const QList<FrmGatePass*> both = open();
    ASSERT_EQ(both.size(), 2);
    both[0]->Driver.Code.SetText(QStringLiteral("2014"));
    EXPECT_TRUE(both[1]->Driver.Code.Text().isEmpty());
    EXPECT_TRUE(both[0]->isVisible());
    EXPECT_TRUE(both[1]->isVisible());
}

TEST_F(FormsTest, AFormIsLoadedAndStandsBesideTheHostsWindows)
{
    forms.GatePassForm();
    ASSERT_EQ(open().size(), 1);
    const FrmGatePass& form = *open().front();
    EXPECT_EQ(form.windowModality(), Qt::NonModal);
    EXPECT_EQ(form.parentWidget(), nullptr);
    EXPECT_EQ(form.TxtGatePassID.Text(), QStringLiteral("1"));
    EXPECT_EQ(form.FormState(), VoucherForm::State::New);
}

TEST_F(FormsTest, AWindowDeletesItselfWhenItIsClosed)
{
    forms.GatePassForm();
    ASSERT_EQ(open().size(), 1);
    EXPECT_TRUE(open().front()->Unload());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(open().isEmpty());
}

TEST_F(FormsTest, InServerModeSaveAndDeleteAreAbsentOnFormsOpenedAfterwards)
{
    forms.GatePassForm();
    FrmGatePass* before = open().front();
    forms.InitializeServer(true);
    forms.GatePassForm();
    ASSERT_EQ(open().size(), 2);
    for (FrmGatePass* form : open()) {
        const bool keepsButtons = form == before;
        EXPECT_EQ(form->BtnSave.IsVisible(), keepsButtons);
        EXPECT_EQ(form->BtnDelete.IsVisible(), keepsButtons);
        EXPECT_TRUE(form->BtnOpen.IsVisible());
        EXPECT_TRUE(form->BtnPrint.IsVisible());
        EXPECT_TRUE(form->BtnClose.IsVisible());
    }
}

TEST_F(FormsTest, InitializeLogoTellsTheReportsTheirLogoAndTheNameOfTheCompany)
{
    const QTemporaryDir folder;
    const QString logo = pictureIn(folder);
    forms.InitializeLogo(logo, QString::fromUtf8("المدینہ ٹریڈرز"));
    EXPECT_EQ(HostContext::LogoImage, logo);
    EXPECT_EQ(HostContext::NameUrdu, QString::fromUtf8("المدینہ ٹریڈرز"));
    EXPECT_EQ(headOfAReport(), std::pair(1, QString::fromUtf8("المدینہ ٹریڈرز")));
}

TEST_F(FormsTest, AnEmptyPlaceOfTheLogoTakesItOffTheReports)
{
    const QTemporaryDir folder;
    const QString logo = pictureIn(folder);
    forms.InitializeLogo(logo, QString::fromUtf8("المدینہ ٹریڈرز"));
    forms.InitializeLogo(QString(), QString::fromUtf8("قصور موٹرز"));
    EXPECT_EQ(headOfAReport(), std::pair(0, QString::fromUtf8("قصور موٹرز")));
    forms.InitializeLogo(QString(), QString());
    EXPECT_EQ(headOfAReport(), std::pair(0, QString()));
}

TEST_F(FormsTest, ALaterCallOverwritesWhatAnEarlierOneGave)
{
    const std::shared_ptr<Connection> second = company.Connect();
    forms.InitializeClass(second);
    EXPECT_EQ(HostContext::objCN, second);
    const auto another = std::make_shared<FakeUser>();
    another->Number = 3;
    forms.InitializeSecurity(another);
    EXPECT_EQ(HostContext::objSec, another);
    EXPECT_EQ(HostContext::UserNo, 3);
    for (const bool server : {true, false, true, false}) {
        forms.InitializeServer(server);
        EXPECT_EQ(HostContext::ServerMode, server);
    }
    forms.GatePassForm();
    ASSERT_EQ(open().size(), 1);
    EXPECT_TRUE(open().front()->BtnSave.IsVisible());
}

TEST_F(FormsTest, AUserNumberOf255IsStoredAsItIs)
{
    user->Number = 255;
    forms.InitializeSecurity(user);
    EXPECT_EQ(HostContext::UserNo, 255);
}

TEST_F(FormsTest, AUserNumberOf256FailsInInitializeSecurity)
{
    for (const int number : {256, -1, 32767}) {
        user->Number = std::int16_t(number);
        try {
            forms.InitializeSecurity(user);
            ADD_FAILURE() << number << " was taken";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Description(), QStringLiteral("Overflow"));
        }
        EXPECT_EQ(HostContext::UserNo, 1);
    }
}

TEST_F(FormsTest, AUserWhoseNumberIsRefusedIsStoredAllTheSame)
{
    const auto refused = std::make_shared<FakeUser>();
    refused->Number = 256;
    EXPECT_THROW(forms.InitializeSecurity(refused), Failure);
    EXPECT_EQ(HostContext::objSec, refused);
}

TEST_F(FormsTest, AFormMethodCalledBeforeInitializeClassFailsInsideTheForm)
{
    HostContext::objCN.reset();
    ExpectedBoxes boxes;
    boxes.Expect({QStringLiteral("There is no database connection: the host has not called "
                                 "InitializeClass."),
                  MsgIcon::Stop, QStringLiteral("Error occured")});
    forms.GatePassForm();
    ASSERT_EQ(open().size(), 1);
}

TEST_F(FormsTest, StockFormsOpenWithPricesOrWithoutAsTheirMethodSays)
{
    struct Opening {
        void (Forms::*Method)();
        const char* Form;
        bool ShowsPrice;
    };
    for (const Opening& opening : {Opening{&Forms::StockInForm, "FrmStockIn", false},
                                   Opening{&Forms::StockInPriceForm, "FrmStockIn", true},
                                   Opening{&Forms::StockOutForm, "FrmStockOut", false},
                                   Opening{&Forms::StockOutPriceForm, "FrmStockOut", true}}) {
        SCOPED_TRACE(opening.Form);
        (forms.*opening.Method)();
        ASSERT_EQ(windows<StockForm>().size(), 1);
        StockForm* form = windows<StockForm>().front();
        EXPECT_EQ(form->objectName(), QLatin1String(opening.Form));
        EXPECT_EQ(form->TxtPrice.IsVisible(), opening.ShowsPrice);
        closeAll();
    }
    forms.StockInDetailForm();
    EXPECT_EQ(windows<FrmStockInDetail>().size(), 1);
}

TEST_F(FormsTest, ASharedWindowComesBackAsItStoodAndANewOneAfterItWasClosed)
{
    FrmGatePass* first = ShowShared<FrmGatePass>();
    first->DtpDate.SetValue(QDate(2020, 1, 31));
    first->Minimize();
    EXPECT_EQ(ShowShared<FrmGatePass>(), first);
    EXPECT_FALSE(first->isMinimized());
    EXPECT_EQ(open().size(), 1);
    EXPECT_EQ(first->DtpDate.Value(), QDate(2020, 1, 31));
    first->Unload();
    const FrmGatePass* second = ShowShared<FrmGatePass>(); // while the first is still going
    EXPECT_NE(second, first);
    EXPECT_TRUE(second->isVisible());
    EXPECT_NE(second->DtpDate.Value(), QDate(2020, 1, 31));
}

TEST_F(FormsTest, MethodsWhoseFormsDoNotExistFailToTheHost)
{
    using Method = void (Forms::*)();
    const QList<std::pair<Method, const char*>> methods{
        {&Forms::ConcessionForm, "ConcessionForm"},
        {&Forms::ConvertAreaForm, "ConvertAreaForm"},
        {&Forms::InstallmentCustomerForm, "InstallmentCustomerForm"},
        {&Forms::RecoveryVoucherForm, "RecoveryVoucherForm"},
        {&Forms::ReturnForm, "ReturnForm"},
        {&Forms::SalaryForm, "SalaryForm"},
        {&Forms::WorkerPartsForm, "WorkerPartsForm"},
        {&Forms::WorkerPartSalaryForm, "WorkerPartSalaryForm"},
        {&Forms::FrenchiserSalaryForm, "FrenchiserSalaryForm"},
    };
    for (const auto& [method, name] : methods) {
        try {
            (forms.*method)();
            ADD_FAILURE() << name << " gave no failure";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Description(),
                      QString::fromLatin1(name) + QStringLiteral(": not built yet"));
        }
    }
}

} // namespace tests
