// A clerk's gate pass through the registered class, by real keys, under the loop of a host with
// accelerators and a dialog of its own. What was stored is read back by the host's connection.

#include "Clerk.h"
#include "Com.h"
#include "Host.h"

#include <gtest/gtest.h>

#include <sstream>

namespace windows_host {

namespace {

using clerk::Enter;
using clerk::Press;
using clerk::See;

/// Facts of the company that the clerk knows by heart.
struct Known {
    explicit Known(IDispatch* connection)
    {
        Area = first(connection, L"select AreaCode from Areas where BranchCode = 1"
                                 L" order by AreaCode");
        Driver = first(connection, L"select StaffID from Staff where FieldWorker = 1"
                                   L" order by StaffID");
        Receiver = first(connection, L"select StaffID from Staff where FieldWorker = 0"
                                     L" order by StaffID");
        std::wistringstream products(
            Rows(connection, L"select ProductID from vuCurrentStock where BranchCode = 1"
                             L" and Stock >= 8 order by ProductID"));
        products >> FirstProduct >> SecondProduct;
    }

    static std::wstring first(IDispatch* connection, const wchar_t* statement)
    {
        const std::wstring rows = Rows(connection, statement);
        return rows.substr(0, rows.find(L' '));
    }

    std::wstring Area, Driver, Receiver, FirstProduct, SecondProduct;
};

class JourneyTest : public ::testing::Test {
protected:
    std::wstring header(int pass)
    {
        return read(L"select DriverCode, ReceivingCode, AreaCode, BranchCode, Supply, Sale,"
                    L" [Order], UserNo, isPosted from GatePassHeader where GatePassID = ",
                    pass);
    }
    std::wstring body(int pass)
    {
        return read(L"select ProductID, OutNewProducts, ReturnOldProducts, ReturnNewProducts"
                    L" from GatePassBody where GatePassID = ",
                    pass);
    }
    /// On the host's thread, between two messages.
    std::wstring read(const wchar_t* statement, int pass)
    {
        std::wstring rows;
        host.Do([&] { rows = Rows(connection.Get(), statement + std::to_wstring(pass)); });
        return rows;
    }

    void enterHeader()
    {
        Enter(known.Driver);
        Press(VK_F1); // the receiver, from the list
        See(L"Find staff");
        clerk::Type(known.Receiver);
        Press(VK_RETURN);
        See(L"Gate Pass");
        Enter(known.Area);
        Enter(L"1");
    }
    void enterRow(const std::wstring& product, const wchar_t* out, const wchar_t* oldBack,
                  const wchar_t* newBack)
    {
        Enter(product);
        Enter(out);
        Enter(oldBack);
        Enter(newBack);
    }
    void save()
    {
        Press('S', {VK_CONTROL});
        See(L"Alert"); // whether to print
        Press('N');
        See(L"Gate Pass");
    }
    void openStored(int pass)
    {
        Press('O', {VK_CONTROL});
        See(L"Find gate pass");
        clerk::Type(std::to_wstring(pass));
        Press(VK_RETURN);
        See(L"Gate Pass");
    }
    void openForm()
    {
        host.Do([this] { EXPECT_EQ(session.Forms->GatePassForm(), S_OK); });
        See(L"Gate Pass");
    }

    DWORD thread = GetCurrentThreadId();
    Host host;
    Session session;
    Ptr<IDispatch> connection = OpenConnection();
    const Known known{connection.Get()};
    const int id = std::stoi(Rows(connection.Get(), L"Select isnull(max(GatePassID),0) from"
                                                    L" GatePassHeader")) +
                   1;
};

} // namespace

TEST_F(JourneyTest, AGatePassIsEnteredStoredChangedAndRemoved)
{
    ASSERT_FALSE(known.SecondProduct.empty());
    const std::wstring expectedHeader =
        known.Driver + L"|" + known.Receiver + L"|" + known.Area + L"|1|False|True|False|1|False";
    host.Run([&] {
        openForm();
        enterHeader();
        enterRow(known.FirstProduct, L"3", L"", L"");
        enterRow(known.SecondProduct, L"5", L"1", L"");
        save();
        EXPECT_EQ(header(id), expectedHeader);
        EXPECT_EQ(body(id),
                  known.FirstProduct + L"|3|null|null " + known.SecondProduct + L"|5|1|null");

        // Open it, change the first row's quantity, save.
        openStored(id);
        Press(VK_ESCAPE);
        Press(VK_DOWN);
        Press(VK_HOME, {VK_CONTROL});
        Press(VK_RETURN);
        Press(VK_TAB, {VK_SHIFT});
        Press('A', {VK_CONTROL});
        Enter(L"4");
        Enter(L"");
        Enter(L"");
        save();
        EXPECT_EQ(body(id),
                  known.FirstProduct + L"|4|null|null " + known.SecondProduct + L"|5|1|null");
        EXPECT_EQ(session.User.Asked,
                  (std::vector<std::wstring>{L"MniGatePass (by reference) I2 1"}));

        // Remove it: first without the right to, then with it.
        session.User.Delete = VARIANT_FALSE;
        openStored(id);
        Press('R', {VK_CONTROL});
        See(L"Confirmation");
        Press('Y');
        See(L"Error");
        EXPECT_EQ(session.User.Asked.back(), L"MniGatePass (by reference) missing I2 1");
        Press(VK_RETURN);
        See(L"Gate Pass");
        EXPECT_EQ(header(id), expectedHeader);
        session.User.Delete = VARIANT_TRUE;
        Press('R', {VK_CONTROL});
        See(L"Confirmation");
        Press('Y');
        See(L"Gate Pass");
        clerk::Await("the pass to be removed", [&] { return header(id).empty(); });
        EXPECT_EQ(body(id), L"");

        // Close with unsaved work: first not, then so.
        clerk::Type(known.Driver);
        Press('Q', {VK_CONTROL});
        See(L"Alert");
        Press('N');
        See(L"Gate Pass");
        Press('Q', {VK_CONTROL});
        See(L"Alert");
        Press('Y');
        host.See();
        EXPECT_EQ(host.Accelerated, 0);
        EXPECT_EQ(host.Pressed, 0);
    });
}

TEST_F(JourneyTest, ARowIsRemovedByItsMenu)
{
    host.Run([&] {
        openForm();
        enterHeader();
        enterRow(known.FirstProduct, L"3", L"", L"");
        enterRow(known.SecondProduct, L"5", L"", L"");
        Press(VK_ESCAPE);
        Press(VK_DOWN);
        Press(VK_HOME, {VK_CONTROL});
        const int before = clerk::CountVisible(thread);
        Press(VK_APPS);
        clerk::Await(
            "the menu", [&] { return clerk::CountVisible(thread) == before + 1; });
        Press(VK_RETURN);
        clerk::Await(
            "the menu's going", [&] { return clerk::CountVisible(thread) == before; });
        save();
        EXPECT_EQ(body(id), known.SecondProduct + L"|5|null|null");
        Press('Q', {VK_CONTROL});
        host.See();
    });
}

TEST_F(JourneyTest, AFailureOfTheSecurityObjectIsShownAndNothingIsWritten)
{
    host.Run([&] {
        openForm();
        enterHeader();
        enterRow(known.FirstProduct, L"3", L"", L"");
        save();
        openStored(id);
        session.User.FailsWith = L"The rights cannot be read.";
        Press('R', {VK_CONTROL});
        See(L"Confirmation");
        Press('Y');
        See(L"Error occured");
        Press(VK_RETURN);
        See(L"Gate Pass");
        EXPECT_NE(header(id), L"");
        session.User.FailsWith.clear();
        Press('Q', {VK_CONTROL});
        host.See();
    });
}

} // namespace windows_host
