#include "tools/lummms/print/lines.h"

#include "tools/lummms/command.h"
#include "tools/lummms/line_reader.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/json.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

/// The keys of an answer that identify its message.
struct Origin {
    QLatin1String key;
    QJsonValue value;
};

QByteArray answer(const Origin& origin, QJsonObject json, const QString& error) {
    json.insert(origin.key, origin.value);
    if (!error.isEmpty())
        json.insert("error", error);
    QByteArray text = jsonText(json, QJsonDocument::Compact);
    // other texts can contain characters that some readers take for line ends
    if (!std::all_of(text.cbegin(), text.cend(), [](char c) { return c >= ' ' && c < '\x7F'; }))
        text = printableLines(QString::fromUtf8(text)).toUtf8();
    return text += '\n';
}

QByteArray answerOf(const Origin& origin, Message& message, int& status) {
    const QJsonObject json = toJson(message);
    const QString error = message.causeOfMalformation();
    status = error.isEmpty() ? EXIT_DONE : EXIT_MALFORMED;
    return answer(origin, json, error);
}

Origin originOf(const QByteArray& line, qint64 number, qsizetype tab) {
    if (tab < 0)
        return {QLatin1String("line"), number};
    return {QLatin1String("key"), QString::fromUtf8(line.constData(), tab)};
}

QByteArray answerToFile(const QString& path, READING reading, int& status) {
    const Origin origin{QLatin1String("file"), path};
    Message message(reading);
    QString cause;
    if (message.read(path, cause)) {
        const QByteArray text = answerOf(origin, message, status);
        message.verdict(path);
        return text;
    }
    complain(path, cause);
    status = EXIT_UNUSABLE;
    return answer(origin, {}, cause);
}

int printFiles(const QStringList& files, READING reading) {
    return worstOf(files, [reading](const QString& path) {
        int status = EXIT_DONE;
        printOctets(answerToFile(path, reading, status));
        return status;
    });
}

int filter(READING reading) {
    LineReader lines(STDIN_FILENO);
    int worst = EXIT_DONE;
    for (qint64 number = 1; lines.next(); ++number) {
        int status = EXIT_MALFORMED;
        const QByteArray text = lines.isTooLong()
                                    ? answer(originOf(lines.line(), number, lines.line().indexOf('\t')), {},
                                             QStringLiteral("the line is longer than 64 MiB"))
                                    : answerToLine(lines.line(), number, reading, status);
        if (!printOctets(text))
            return EXIT_UNUSABLE; // the reader of the output is gone
        worst = std::max(worst, status);
    }
    if (lines.failure().isEmpty())
        return worst;
    complain(QStringLiteral("standard input"), QString::fromLocal8Bit(lines.failure()));
    return EXIT_UNUSABLE;
}

} // namespace

QByteArray answerToLine(const QByteArray& line, qint64 number, READING reading, int& status) {
    const qsizetype tab = line.indexOf('\t');
    const Origin origin = originOf(line, number, tab);
    const auto decoded = QByteArray::fromBase64Encoding(
        QByteArray::fromRawData(line.constData() + tab + 1, line.size() - tab - 1),
        QByteArray::AbortOnBase64DecodingErrors);
    status = EXIT_MALFORMED;
    if (!decoded)
        return answer(origin, {}, QStringLiteral("the message is not base64"));
    if (decoded.decoded.isEmpty())
        return answer(origin, {}, QStringLiteral("the line has no message"));
    Message message(reading);
    message.read(decoded.decoded);
    return answerOf(origin, message, status);
}

int printLines(const CommandLine& line) {
    // written at once and in one call, so that programs appending to one file do not mix their lines
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    const READING reading = readingAskedFor(line);
    return line.files.isEmpty() ? filter(reading) : printFiles(line.files, reading);
}
