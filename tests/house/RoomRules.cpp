#include "house/RoomRules.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace tests {

namespace {

/// Which rooms each room may look into, beside itself.
const QHash<QString, QSet<QString>>& mayInclude()
{
    const auto s = [](const char* text) { return QString::fromLatin1(text); };
    static const QHash<QString, QSet<QString>> allowed{
        {s("data"), {}},
        {s("controls"), {}},
        {s("host"), {s("data")}},
        {s("search"), {s("data"), s("controls"), s("host")}},
        {s("frame"), {s("data"), s("controls"), s("host"), s("search")}},
        {s("reports"), {s("data"), s("controls"), s("host")}},
        {s("stock"), {s("data"), s("controls"), s("host"), s("search"), s("frame"), s("reports")}},
        {s("installment"),
         {s("data"), s("controls"), s("host"), s("search"), s("frame"), s("reports")}},
        {s("payroll"),
         {s("data"), s("controls"), s("host"), s("search"), s("frame"), s("reports")}},
        {s("entry"),
         {s("data"), s("host"), s("stock"), s("installment"), s("payroll"), s("frame")}},
        {s("com"), {s("data"), s("controls"), s("host"), s("entry")}},
        {s("sample"), {}},
        {s("app"), {s("sample")}},
        {s("tools"), {}},
    };
    return allowed;
}

QString roomOf(const QString& path)
{
    // The class for Windows hosts lies in the entry's folder and knows nothing of the screens.
    static const QRegularExpression com(QStringLiteral("^(?:src/)?entry/com/"));
    if (com.match(path).hasMatch())
        return QStringLiteral("com");
    static const QRegularExpression inRoom(QStringLiteral("^(?:src/)?([a-z]+)/"));
    return inRoom.match(path).captured(1);
}

/// The part of the data room that a file belongs to; empty for what stands above its parts.
QString dataPartOf(const QString& path)
{
    static const QRegularExpression inPart(
        QStringLiteral("^(?:src/)?data/(sqlite|odbc|ado|server)/"));
    return inPart.match(path).captured(1);
}

/// The engines do not know each other; both ways to a server share its words.
bool mayIncludePart(const QString& part, const QString& other)
{
    const bool isServers = part == QLatin1String("odbc") || part == QLatin1String("ado");
    return part.isEmpty() || other.isEmpty() || part == other ||
           (isServers && other == QLatin1String("server"));
}

QString publicHeaderRoom(const QString& name)
{
    if (name == QLatin1String("Forms.h"))
        return QStringLiteral("entry");
    if (name == QLatin1String("Printing.h"))
        return QStringLiteral("reports");
    return name == QLatin1String("UserSecurity.h") ? QStringLiteral("host")
                                                   : QStringLiteral("data");
}

} // namespace

QStringList roomViolations(const QString& path, const QString& content)
{
    const QString room = roomOf(path);
    const bool isHost = room == QLatin1String("app") || room == QLatin1String("sample") ||
                        room == QLatin1String("tools");
    QStringList violations;
    static const QRegularExpression include(
        QStringLiteral("^\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"]"),
        QRegularExpression::MultilineOption);
    for (auto found = include.globalMatch(content); found.hasNext();) {
        const QString header = found.next().captured(1);
        QString target;
        if (header.startsWith(QLatin1String("TradeForms/"))) {
            if (isHost || header.endsWith(QLatin1String("/Export.h")) ||
                header.endsWith(QLatin1String("/Version.h")))
                continue;
            target = publicHeaderRoom(header.mid(11));
        } else {
            target = roomOf(header);
            if (!mayInclude().contains(target))
                continue;
        }
        const bool isAllowed = target == room ? mayIncludePart(dataPartOf(path), dataPartOf(header))
                                              : mayInclude().value(room).contains(target);
        if (!isAllowed)
            violations.append(QStringLiteral("%1 includes %2").arg(path, header));
    }
    // The data room uses QtCore and nothing more of Qt.
    if (room == QLatin1String("data")) {
        static const QRegularExpression widgets(
            QStringLiteral("^\\s*#\\s*include\\s*<(QWidget|QApplication|QtWidgets|QtGui|QColor|"
                           "QFont|QMessageBox)"
                           ".*>"),
            QRegularExpression::MultilineOption);
        if (widgets.match(content).hasMatch())
            violations.append(QStringLiteral("%1 includes more of Qt than QtCore").arg(path));
    }
    return violations;
}

} // namespace tests
