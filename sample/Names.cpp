#include "sample/Names.h"
#include "sample/Utf8.h"

namespace Sample {

namespace {

constexpr const char* firstNames[] = {
    "محمد",  "احمد",  "غلام",  "عبدال", "نذیر", "بشیر", "شبیر",  "منیر",  "رشید", "حنیف",
    "شریف",  "لطیف",  "صدیق",  "رفیق",  "شفیق", "یوسف", "یعقوب", "اسلم",  "اکرم", "اشرف",
    "انور",  "اختر",  "ارشد",  "امجد",  "ساجد", "خالد", "طارق",  "عارف",  "آصف",  "کاشف",
    "عمران", "عرفان", "عدنان", "سلمان", "فیصل", "نوید", "جاوید", "پرویز", "سعید", "حمید",
    "مقبول", "محبوب", "منظور", "ظہور",  "سرور", "افضل", "اجمل",  "اکمل",  "نواز", "ریاض",
};

/// Second names.
constexpr const char* secondNames[] = {
    "علی",  "حسین", "حسن",  "احمد", "خان",  "اقبال", "رضا",  "بخش",  "اسلم", "شفیع",
    "یوسف", "صدیق", "رسول", "محمد", "عباس", "حیدر",  "اکبر", "نواز", "انور", "اصغر",
};

constexpr const char* servantOf[] = {
    "رحمن", "غفور", "ستار", "مجید", "حمید", "رشید", "قیوم", "وحید", "خالق", "رزاق",
};

constexpr const char* ghulamOf[] = {
    "رسول", "نبی", "مصطفیٰ", "مرتضیٰ", "عباس", "حسین", "علی", "محمد", "قادر", "فرید",
};

constexpr const char* castes[] = {
    "آرائیں", "راجپوت", "جٹ",     "بھٹی", "گجر", "شیخ", "انصاری", "رحمانی",
    "ڈوگر",   "میو",    "کھوکھر", "وٹو",  "ملک", "سید", "مغل",    "قریشی",
};

constexpr const char* quarters[] = {
    "محلہ اسلام پورہ", "محلہ غوثیہ",    "بستی چراغ شاہ",  "ریلوے روڈ",
    "نزد غلہ منڈی",    "نزد جامع مسجد", "محلہ شاہ والا",  "کچا پکا روڈ",
    "نزد بس سٹینڈ",    "محلہ قادریہ",   "بستی قادر آباد", "نہر کنارہ",
    "پرانی منڈی",      "محلہ نور پورہ", "نزد ہائی سکول",  "فیض پور کالونی",
};

constexpr const char* jobs[] = {
    "کریانہ سٹور", "گورنمنٹ پرائمری سکول", "ٹیکسٹائل مل", "کھیتی باڑی",
    "رکشہ سٹینڈ",  "درزی کی دکان",         "سبزی منڈی",   "بھٹہ خشت",
    "موبائل شاپ",  "واپڈا دفتر",           "شوگر مل",     "ورکشاپ",
};

constexpr const char* cities[] = {
    "قصور", "لاہور", "پتوکی", "رائے ونڈ", "چونیاں", "پھول نگر", "کوٹ رادھا کشن", "کھڈیاں",
};

constexpr const char* colours[] = {"سرخ", "سیاہ", "نیلا", "سفید", "سلور"};

QString digits(Random& random, int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += QLatin1Char(char('0' + random.Below(10)));
    return text;
}

QString pick(Random& random, const auto& list)
{
    return utf8(random.Pick(list));
}

} // namespace

QString GivenName(Random& random)
{
    const QString first = pick(random, firstNames);
    if (first == QStringLiteral("عبدال"))
        return first + pick(random, servantOf);
    if (first == QStringLiteral("غلام"))
        return first + QLatin1Char(' ') + pick(random, ghulamOf);
    const QString second = pick(random, secondNames);
    return second == first ? first : first + QLatin1Char(' ') + second;
}

QString Caste(Random& random)
{
    return pick(random, castes);
}

QString HomeAddress(Random& random)
{
    switch (random.Below(3)) {
    case 0:
        return utf8("چک نمبر %1").arg(random.Between(2, 96));
    case 1:
        return utf8("گلی نمبر %1، %2").arg(random.Between(1, 14)).arg(pick(random, quarters));
    default:
        return utf8("مکان نمبر %1، %2").arg(random.Between(1, 480)).arg(pick(random, quarters));
    }
}

QString JobAddress(Random& random)
{
    const QString job = pick(random, jobs);
    return job + utf8("، ") + pick(random, cities);
}

QString City(Random& random)
{
    return pick(random, cities);
}

QString Colour(Random& random)
{
    return pick(random, colours);
}

QString IdentityCard(Random& random)
{
    const QString serial = digits(random, 7);
    const QString last = digits(random, 1);
    return QStringLiteral("3510%1-%2-%3").arg(random.Between(1, 4)).arg(serial, last);
}

QString MobileNumber(Random& random)
{
    return QStringLiteral("03%1-%2")
        .arg(random.Between(0, 49), 2, 10, QLatin1Char('0'))
        .arg(digits(random, 7));
}

QString HousePhone(Random& random)
{
    return QStringLiteral("049-%1").arg(digits(random, 7));
}

QString VehicleNumber(Random& random)
{
    const QChar series(u'A' + random.Below(26));
    return QStringLiteral("LE%1-%2").arg(series).arg(digits(random, 4));
}

} // namespace Sample
