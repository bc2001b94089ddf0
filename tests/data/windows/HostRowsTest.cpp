#include "data/Connection.h"
#include "data/Engine.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "data/ado/Dispatch.h"
#include "support/windows/HostObject.h"

#include <gtest/gtest.h>

#include <oleauto.h>

using namespace TradeForms;
using tests::Handed;
using tests::HostFailure;
using tests::HostObject;

namespace {

/// A column and its one value, as a provider may give them.
struct Given {
    int Type = 0;
    Variant Value;
    int Size = 0;
    const char* Name = "Value";
};

class GivenField : public HostObject {
public:
    explicit GivenField(const Given& given)
    {
        Add(
            L"Name", [name = given.Name](Arguments) { return Variant(QString::fromUtf8(name)); });
        Add(L"Type", [type = given.Type](Arguments) { return Variant(qint32(type)); });
        if (given.Size > 0)
            Add(L"DefinedSize", [size = given.Size](Arguments) { return Variant(qint32(size)); });
    }
};

class GivenFields : public HostObject {
public:
    explicit GivenFields(const Given& given)
    {
        Add(
            L"Count", [](Arguments) { return Variant(qint32(1)); });
        Add(L"Item", [given](Arguments) { return Handed(new GivenField(given)); });
    }
};

/// One row of one column.
class GivenRows : public HostObject {
public:
    explicit GivenRows(const Given& given)
    {
        Add(
            L"State", [](Arguments) { return Variant(qint32(1)); });
        Add(
            L"EOF", [this](Arguments) { return Variant(isRead_); });
        Add(
            L"Fields", [given](Arguments) { return Handed(new GivenFields(given)); });
        Add(L"Close", [](Arguments) { return Variant(); });
        Add(L"GetRows", [this, given](Arguments) {
            isRead_ = true;
            Variant block;
            SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}};
            V_ARRAY(block.Raw()) = SafeArrayCreate(VT_VARIANT, 2, bounds);
            V_VT(block.Raw()) = VT_ARRAY | VT_VARIANT;
            VariantCopy(static_cast<VARIANT*>(V_ARRAY(block.Raw())->pvData),
                        const_cast<VARIANT*>(given.Value.Raw()));
            return block;
        });
    }

private:
    bool isRead_ = false;
};

/// A connection that gives one result, whatever it is asked.
class GivenConnection : public HostObject {
public:
    explicit GivenConnection(std::function<Variant()> result)
    {
        Add(
            L"Execute", [result = std::move(result)](Arguments) { return result(); });
    }
};

Recordset rowsOf(const std::function<Variant()>& result,
                 const char* statement = "select x+0 as Value from T")
{
    const Dispatch host = Handed(new GivenConnection(result)).ToDispatch();
    return Connection::OpenHost(host.Raw())->Execute(statement);
}

QVariant read(const Given& given, const char* statement = "select x+0 as Value from T")
{
    return rowsOf([given] { return Handed(new GivenRows(given)); }, statement).ValueAt(0, 0);
}

template <class Put> Variant made(VARTYPE type, Put put)
{
    Variant value;
    put(*value.Raw());
    V_VT(value.Raw()) = type;
    return value;
}

Variant decimal(const wchar_t* digits)
{
    return made(
        VT_DECIMAL,
        [&](VARIANT& value) {
            std::wstring text(digits);
            EXPECT_TRUE(
                SUCCEEDED(VarDecFromStr(text.data(), LOCALE_INVARIANT, 0, &V_DECIMAL(&value))));
        });
}

Variant currency(qint64 tenThousandths)
{
    return made(
        VT_CY, [&](VARIANT& value) { V_CY(&value).int64 = tenThousandths; });
}

Variant date(double days)
{
    return made(
        VT_DATE, [&](VARIANT& value) { V_DATE(&value) = days; });
}

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

QString failureOf(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const ProviderFailure& failure) {
        return failure.Description();
    }
    return words("no failure");
}

} // namespace

TEST(HostRows, ReadWholeNumbersOfEveryWidth)
{
    const auto number = [](VARTYPE type, auto put) { return read({3, made(type, put)}); };
    EXPECT_EQ(number(
                  VT_I1, [](VARIANT& v) { V_I1(&v) = -5; }),
              QVariant(-5LL));
    EXPECT_EQ(number(
                  VT_UI1, [](VARIANT& v) { V_UI1(&v) = 255; }),
              QVariant(255LL));
    EXPECT_EQ(number(
                  VT_I2, [](VARIANT& v) { V_I2(&v) = -32768; }),
              QVariant(-32768LL));
    EXPECT_EQ(number(
                  VT_UI2, [](VARIANT& v) { V_UI2(&v) = 65535; }),
              QVariant(65535LL));
    EXPECT_EQ(number(
                  VT_I4, [](VARIANT& v) { V_I4(&v) = -2147483647; }),
              QVariant(-2147483647LL));
    EXPECT_EQ(number(
                  VT_INT, [](VARIANT& v) { V_INT(&v) = 7; }),
              QVariant(7LL));
    EXPECT_EQ(number(
                  VT_UI4, [](VARIANT& v) { V_UI4(&v) = 4294967295u; }),
              QVariant(4294967295LL));
    EXPECT_EQ(number(
                  VT_I8, [](VARIANT& v) { V_I8(&v) = 9223372036854775807LL; }),
              QVariant(9223372036854775807LL));
    EXPECT_EQ(number(
                  VT_UI8, [](VARIANT& v) { V_UI8(&v) = 12; }),
              QVariant(12LL));
    EXPECT_EQ(number(VT_UI8, [](VARIANT& v) { V_UI8(&v) = 1ULL << 63; }),
              QVariant(9223372036854775808.0));
    // What is larger than 32 bits some give as a decimal.
    EXPECT_EQ(read({20, decimal(L"-9223372036854775807")}), QVariant(-9223372036854775807LL));
}

TEST(HostRows, ReadDecimalsAndMoneyExactly)
{
    const auto amount = [](const Variant& value) { return read({131, value}); };
    EXPECT_EQ(amount(decimal(L"12.3400")), QVariant(12.34));
    EXPECT_EQ(amount(decimal(L"-0.0001")), QVariant(-0.0001));
    EXPECT_EQ(amount(decimal(L"0.0000")), QVariant(0.0));
    EXPECT_EQ(amount(decimal(L"99999999999.9999")), QVariant(99999999999.9999));
    EXPECT_EQ(amount(decimal(L"123456789012345.6789")), QVariant(123456789012345.6789));
    EXPECT_EQ(amount(decimal(L"185000")), QVariant(185000.0));
    EXPECT_EQ(amount(decimal(L"79228162514264337593543950335")),
              QVariant(79228162514264337593543950335.0));
    EXPECT_EQ(read({6, currency(1234567)}), QVariant(123.4567));
    EXPECT_EQ(read({6, currency(-5000)}), QVariant(-0.5));
    EXPECT_EQ(read({6, currency(9223372036854775807LL)}), QVariant(922337203685477.5807));
    EXPECT_EQ(read({6, currency(1850000000)}).typeId(), QMetaType::Double);
    EXPECT_EQ(read({5, Variant(0.1)}), QVariant(0.1));
    EXPECT_EQ(read({4, made(VT_R4, [](VARIANT& v) { V_R4(&v) = 0.5f; })}), QVariant(0.5));
}

TEST(HostRows, ReadDatesAndMoments)
{
    const auto moment = [](double days) { return read({135, date(days)}).toDateTime(); };
    EXPECT_EQ(read({133, date(46027)}), QVariant(QDate(2026, 1, 5)));
    EXPECT_EQ(moment(46027), QDateTime(QDate(2026, 1, 5), QTime(0, 0)));
    EXPECT_EQ(moment(46027.75), QDateTime(QDate(2026, 1, 5), QTime(18, 0)));
    // No fraction of a day that is a second is exact.
    for (int second = 0; second < 86400; second += 617)
        ASSERT_EQ(moment(46027 + second / 86400.0),
                  QDateTime(QDate(2026, 1, 5), QTime(0, 0).addSecs(second)));
    EXPECT_EQ(moment(46027 + 86399.0 / 86400), QDateTime(QDate(2026, 1, 5), QTime(23, 59, 59)));
    EXPECT_EQ(moment(46027.99999999999), QDateTime(QDate(2026, 1, 6), QTime(0, 0)));
    EXPECT_EQ(read({133, date(0)}), QVariant(QDate(1899, 12, 30)));
    // Before that day, the time still counts forward.
    EXPECT_EQ(moment(-1.25), QDateTime(QDate(1899, 12, 29), QTime(6, 0)));
    EXPECT_EQ(read({133, date(-53688)}), QVariant(QDate(1753, 1, 1)));
}

TEST(HostRows, ReadTheDatesThatAnOlderProviderGivesAsTexts)
{
    const auto unicode = [](const char* text, int size) {
        return read({202, Variant(words(text)), size});
    };
    EXPECT_EQ(unicode("2026-01-05", 10), QVariant(QDate(2026, 1, 5)));
    EXPECT_EQ(unicode("2026-01-05 10:20:30", 19).toDateTime(),
              QDateTime(QDate(2026, 1, 5), QTime(10, 20, 30)));
    // A text of that length is a text, and one in the database's own encoding is never a date.
    EXPECT_EQ(unicode("Kot Radha ", 10), QVariant(words("Kot Radha ")));
    EXPECT_EQ(read({200, Variant(words("2026-01-05"))}), QVariant(words("2026-01-05")));
    EXPECT_EQ(unicode("2026-01-05", 50), QVariant(words("2026-01-05")));
}

TEST(HostRows, TakeTheKindOfAColumnOfTheCompanyFromItsSchema)
{
    const Given text{202, Variant(words("2026-01-05 00:00:00.0000000")), 50, "GatePassDate"};
    EXPECT_EQ(read(text, "select GatePassDate from GatePassHeader"), QVariant(QDate(2026, 1, 5)));
    EXPECT_EQ(read(text, "select GatePassDate from Elsewhere").typeId(), QMetaType::QString);
    // A database that was made before the server knew dates without a time.
    const Given moment{135, date(46027), 0, "GatePassDate"};
    EXPECT_EQ(read(moment, "select * from GatePassHeader where GatePassID=1"),
              QVariant(QDate(2026, 1, 5)));
    const Given flag{2, Variant(qint16(-1)), 0, "Supply"};
    EXPECT_EQ(read(flag, "select Supply from GatePassHeader"), QVariant(true));
}

TEST(HostRows, ReadTextsFlagsAndNothing)
{
    EXPECT_EQ(read({200, Variant(words("قصور 'x'"))}), QVariant(words("قصور 'x'")));
    EXPECT_EQ(read({200, Variant(words(""))}), QVariant(words("")));
    EXPECT_EQ(read({203, Variant(QString(100000, u'ق'))}), QVariant(QString(100000, u'ق')));
    EXPECT_EQ(read({72, Variant(words("{6F9619FF-8B86-D011-B42D-00C04FC964FF}"))}),
              QVariant(words("{6F9619FF-8B86-D011-B42D-00C04FC964FF}")));
    EXPECT_EQ(read({11, Variant(true)}), QVariant(true));
    EXPECT_EQ(read({11, Variant(false)}), QVariant(false));
    EXPECT_FALSE(read({200, made(VT_NULL, [](VARIANT&) {})}).isValid());
    EXPECT_FALSE(read({3, Variant()}).isValid());
    EXPECT_EQ(read({12, Variant(qint32(3))}), QVariant(3LL));
    EXPECT_EQ(read({12, Variant(words("three"))}), QVariant(words("three")));
}

TEST(HostRows, ReadBytes)
{
    const Variant bytes = made(VT_ARRAY | VT_UI1, [](VARIANT& value) {
        V_ARRAY(&value) = SafeArrayCreateVector(VT_UI1, 0, 3);
        memcpy(V_ARRAY(&value)->pvData, "\0\xFFz", 3);
    });
    EXPECT_EQ(read({204, bytes}), QVariant(QByteArray("\0\xFFz", 3)));
}

TEST(HostRows, SayWhatTheyCannotRead)
{
    EXPECT_EQ(failureOf([] {
                  read({3, made(
                               VT_ERROR, [](VARIANT& v) { V_ERROR(&v) = 5; })});
              }),
              words("The values of 'Value' are of a type (10) that cannot be read."));

    const auto rowsThatGive = [](const Variant& block) {
        class Rows : public GivenRows {
        public:
            explicit Rows(const Variant& block) : GivenRows({3, Variant()})
            {
                Replace(L"GetRows", [block](Arguments) { return block; });
            }
        };
        return failureOf([&] { rowsOf([&] { return Handed(new Rows(block)); }); });
    };
    const QString refusal = words("The connection gives its rows in a form that cannot be read.");
    EXPECT_EQ(rowsThatGive(Variant()), refusal);
    EXPECT_EQ(rowsThatGive(Variant(words("row"))), refusal);
    const auto array = [](VARTYPE type, std::vector<ULONG> lengths) {
        return made(VARTYPE(VT_ARRAY | type), [&](VARIANT& value) {
            std::vector<SAFEARRAYBOUND> bounds;
            for (const ULONG length : lengths)
                bounds.push_back({length, 0});
            V_ARRAY(&value) = SafeArrayCreate(type, UINT(bounds.size()), bounds.data());
        });
    };
    EXPECT_EQ(rowsThatGive(array(VT_VARIANT, {1})), refusal);
    EXPECT_EQ(rowsThatGive(array(VT_VARIANT, {2, 1})), refusal);
    EXPECT_EQ(rowsThatGive(array(VT_I4, {1, 1})), refusal);
}

TEST(HostRows, OfAStatementThatGivesNoneMayBeNoObjectAtAll)
{
    EXPECT_FALSE(rowsOf([] { return Variant(); }).IsOpen());
    EXPECT_FALSE(rowsOf([] { return Variant(Dispatch()); }).IsOpen());
}

TEST(HostRows, LeaveNoObjectBehind)
{
    const int before = HostObject::Alive();
    read({3, Variant(qint32(1))});
    failureOf([] { read({3, made(VT_ERROR, [](VARIANT& v) { V_ERROR(&v) = 5; })}); });
    EXPECT_EQ(HostObject::Alive(), before);
}
