#include "host/Forms.h"

#include "data/Connection.h"
#include "data/Failure.h"
#include "host/HostContext.h"
#include "stock/FrmGatePass.h"
#include "support/ExpectedBoxes.h"
#include "support/FakeUser.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QApplication>

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
        for (FrmGatePass* form : open()) {
            delete form;
        }
        HostContext::objCN.reset();
        HostContext::objSec.reset();
        HostContext::ServerMode = false;
    }

    static QList<FrmGatePass*> open()
    {
        QList<FrmGatePass*> found;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* form = qobject_cast<FrmGatePass*>(window)) {
                found.append(form);
            }
        }
        return found;
    }

    TestCompany company;
    std::shared_ptr<FakeUser> user = std::make_shared<FakeUser>();
    Forms forms;
};

} // namespace

TEST_F(FormsTest, GatePassFormCalledTwiceGivesTwoWindowsWithSeparateState)
{
    forms.GatePassForm();
    forms.GatePassForm();
    const QList<FrmGatePass*> windows = open();
    ASSERT_EQ(windows.size(), 2);
    windows[0]->TxtDriverCode.SetText(QStringLiteral("2014"));
    EXPECT_TRUE(windows[1]->TxtDriverCode.Text().isEmpty());
    EXPECT_TRUE(windows[0]->isVisible());
    EXPECT_TRUE(windows[1]->isVisible());
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

TEST_F(FormsTest, InitializeLogoKeepsAnEmptyPlaceForReports)
{
    forms.InitializeLogo(QStringLiteral("logo.png"), QString::fromUtf8("المدینہ ٹریڈرز"));
    EXPECT_EQ(HostContext::LogoImage, QStringLiteral("logo.png"));
    EXPECT_EQ(HostContext::NameUrdu, QString::fromUtf8("المدینہ ٹریڈرز"));
    forms.InitializeLogo(QString(), QString());
    EXPECT_TRUE(HostContext::LogoImage.isEmpty());
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
    }
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
        {&Forms::StockInForm, "StockInForm"},
        {&Forms::StockInDetailForm, "StockInDetailForm"},
        {&Forms::StockInPriceForm, "StockInPriceForm"},
        {&Forms::StockOutForm, "StockOutForm"},
        {&Forms::StockOutPriceForm, "StockOutPriceForm"},
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
