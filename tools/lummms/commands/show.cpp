// lummms show: prints header, parts and slides of a message, as text or JSON.

#include "tools/lummms/print/print.h"

#include "multipart/body_part.h"
#include "tools/lummms/command.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/lines.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "util/lowered.h"

#include <algorithm>

namespace {

constexpr qsizetype OCTETS_READ = 400;  ///< the first octets of a text, from which its first words are shown
constexpr qsizetype WIDEST_COLUMN = 40; ///< characters up to which columns are aligned
constexpr int COLUMNS = 5;

/// A line of the table of parts and, for a text, its first words below.
struct Row {
    QString cells[COLUMNS]; // number, type, name, octets, charset
    QString words;
};

bool isText(const MMS_COMP_SMILMultipartBodypart& part) {
    return equalLowered(part.getContentType(), u"text");
}

/// The charset that a part states; for a text without one "utf-8" or "unknown".
QString charsetOf(const MMS_COMP_SMILMultipartBodypart& part, const MMS_WIRE_Part* sent) {
    const QString named = sent ? sent->charset() : part.getCharset();
    if (!named.isEmpty())
        return printableStart(named);
    if (!isText(part))
        return QString();
    const QArray<char>& octets = part.getBodyData();
    const QByteArrayView text(octets.data(), octets.size());
    return QStringLiteral("%1").arg(QLatin1String(text.isValidUtf8() ? "utf-8" : "unknown"));
}

/// Adds rows for a part and its sub-parts. `sent` is the part as sent, null in the phone's reading.
void addRow(QList<Row>& rows, const MMS_COMP_SMILMultipartBodypart& part, const MMS_WIRE_Part* sent,
            const QString& number, int depth) {
    const QString indent(2 * depth, u' ');
    const qsizetype octets = part.getBodyData().size();
    rows += Row{{indent + number, typeOf(part), printable(part.getContentLocation()), QString::number(octets),
                 charsetOf(part, sent)},
                isText(part) && octets ? firstWords(part) : QString()};
    const QList<MMS_WIRE_Part> inside = sent ? sent->parts() : QList<MMS_WIRE_Part>();
    for (int i = 0; i < part.getSubBodyCount(); ++i)
        addRow(rows, *part.getSubBody(static_cast<unsigned int>(i)),
               i < inside.size() ? &inside.at(i) : nullptr, QStringLiteral("%1.%2").arg(number).arg(i + 1),
               depth + 1);
}

QString table(const QList<Row>& rows) {
    qsizetype widths[COLUMNS] = {};
    for (const Row& row : rows)
        for (int i = 0; i < COLUMNS; ++i)
            widths[i] = std::max(widths[i], std::min(row.cells[i].size(), WIDEST_COLUMN));
    constexpr int octets = 3; // the column aligned to the right
    QString text;
    for (const Row& row : rows) {
        QString line = QStringLiteral(" ");
        for (int i = 0; i < COLUMNS; ++i)
            line += u' ' +
                    (i == octets ? row.cells[i].rightJustified(widths[i])
                                 : row.cells[i].leftJustified(widths[i])) +
                    u' ';
        while (line.endsWith(u' '))
            line.chop(1);
        text += line + u'\n';
        if (!row.words.isEmpty())
            text += QString(widths[0] + 4, u' ') + row.words + u'\n';
    }
    return text;
}

int showOne(const CommandLine& line, const QString& path) {
    Message message(readingAskedFor(line));
    QString cause;
    if (!message.read(path, cause)) {
        complain(path, cause);
        return EXIT_UNUSABLE;
    }
    if (line.options.isSet(QStringLiteral("json"))) {
        print(printableLines(QString::fromUtf8(messageForProgram(message))));
        return message.verdict(path);
    }
    printHeading(line, path);
    print(headerForPerson(message) + partsForPerson(message));
    message.readPresentationWithGaps();
    print(slidesForPerson(message) + (line.files.size() > 1 ? QStringLiteral("\n") : QString()));
    return message.verdict(path);
}

int show(const CommandLine& line) {
    const bool asLines = line.options.isSet("lines");
    if (asLines && !line.options.isSet("json"))
        return misused("show", QStringLiteral("--lines needs --json"));
    if (asLines)
        return printLines(line);
    if (line.files.isEmpty())
        return misused("show", QStringLiteral("FILE is missing"));
    return worstOf(line.files, [&](const QString& path) { return showOne(line, path); });
}

} // namespace

QString typeOf(const MMS_COMP_SMILMultipartBodypart& part) {
    return printable(part.getMimeFormat());
}

QString firstWords(const MMS_COMP_SMILMultipartBodypart& part) {
    const QArray<char>& octets = part.getBodyData();
    const qsizetype read = std::min(octets.size(), OCTETS_READ);
    QString text = QString::fromUtf8(octets.data(), read);
    bool more = read < octets.size();
    while (more && text.endsWith(QChar::ReplacementCharacter)) // a character that was cut
        text.chop(1);
    while (text.endsWith(QChar::Null))
        text.chop(1);
    text = text.trimmed();
    const auto isLineEnd = [](QChar c) { return c == u'\n' || c == u'\r'; };
    const auto lineEnd = std::find_if(text.cbegin(), text.cend(), isLineEnd);
    if (lineEnd != text.cend()) {
        text.truncate(lineEnd - text.cbegin());
        more = true;
    }
    return u'"' + printableStart(text, more) + u'"';
}

QString partsForPerson(Message& message) {
    if (message.result || !message.header.fieldsPresent(presenceBit(FIELD_CONTENT_TYPE)))
        return QString();
    if (!message.hasBody)
        return QStringLiteral("\nBody: %1, not a multipart\n").arg(counted(message.bodyLength(), "octet"));
    const QList<MMS_WIRE_Part> sent = message.wire().parts();
    QList<Row> rows;
    const int count = message.body.getPartCount();
    for (int i = 0; i < count; ++i)
        addRow(rows, *message.body.getBodypartByIndex(i, false), i < sent.size() ? &sent.at(i) : nullptr,
               QString::number(i + 1), 0);
    if (count)
        rows.prepend(Row{{"No", "Type", "Name", "Octets", "Charset"}, QString()});
    return QStringLiteral("\nBody: %1 in %2\n")
               .arg(counted(count, "part"), counted(message.bodyLength(), "octet")) +
           table(rows);
}

Command showCommand() {
    return {
        QStringLiteral("show"),
        QStringLiteral("Shows a message: header, parts and slides."),
        {QStringLiteral("[--json] [--phone] FILE..."), QStringLiteral("--json --lines [--phone] [FILE...]")},
        QStringLiteral(
            "FILE is a binary MMS message. It is read as it was sent: fields, texts, parts and layout as\n"
            "the sender meant them. Use this for gateways, archives and test benches. With --phone it is\n"
            "read by the rules of the phone, as the library's decoders do: use this to know what the\n"
            "phone shows. The phone loses unknown fields and their neighbours, and its Date is the time\n"
            "of reading. Of a malformed message everything that could be read is shown.\n"
            "Dates are shown in local time.\n"
            "With --lines each FILE gives one line of JSON, with \"file\". Without FILE each line of\n"
            "standard input is a message in base64, optionally after a key and a tab, and gives one line\n"
            "at once, with \"key\" or, without a key, \"line\", its number. A malformed message or a line\n"
            "without a message gives \"error\"; the filter goes on.\n"),
        {{QStringLiteral("json"), QStringLiteral("Prints the message as JSON.")},
         {QStringLiteral("lines"),
          QStringLiteral(
              "With --json: one line for each message; without FILE a filter for lines of base64.")},
         phoneOption()},
        {QStringLiteral("[FILE...]")},
        QString(),
        show,
    };
}
