#include "tools/lummms/terminal.h"

#include <cstdio>
#include <unistd.h>

namespace {

bool isControl(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

/// Invisible characters that change text direction or end a line.
bool isHiddenMark(char16_t unit) {
    return unit == 0x061C || unit == 0x200E || unit == 0x200F || (unit >= 0x2028 && unit <= 0x202E) ||
           (unit >= 0x2066 && unit <= 0x2069);
}

/// Whether the unit at `at` is half of a surrogate pair without its other half.
bool isHalfPair(QStringView text, qsizetype at) {
    const QChar unit = text.at(at);
    if (unit.isHighSurrogate())
        return at + 1 == text.size() || !text.at(at + 1).isLowSurrogate();
    return unit.isLowSurrogate() && (at == 0 || !text.at(at - 1).isHighSurrogate());
}

QString escaped(QStringView text, bool keepLineEnds) {
    QString shown;
    shown.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text.at(i).unicode();
        if (keepLineEnds && unit == u'\n')
            shown += u'\n';
        else if (isUnprintable(text, i))
            shown += QStringLiteral("\\u") + QString::number(unit, 16).rightJustified(4, u'0');
        else
            shown += text.at(i);
    }
    return shown;
}

bool write(std::FILE* stream, QByteArrayView octets) {
    const auto size = static_cast<size_t>(octets.size());
    return std::fwrite(octets.data(), 1, size, stream) == size;
}

} // namespace

bool isUnprintable(QStringView text, qsizetype at) {
    const char16_t unit = text.at(at).unicode();
    return isControl(unit) || isHiddenMark(unit) || isHalfPair(text, at);
}

QString printable(const QString& text) {
    qsizetype length = text.size();
    while (length > 0 && text.at(length - 1).isNull())
        --length;
    return escaped(QStringView(text).left(length), false);
}

QString printableStart(const QString& text, bool more) {
    constexpr qsizetype shown = 60;
    if (text.size() <= shown)
        return printable(text) + (more ? QStringLiteral(" ...") : QString());
    const bool cutsPair = text.at(shown - 1).isHighSurrogate();
    return printable(text.left(cutsPair ? shown - 1 : shown)) + QStringLiteral(" ...");
}

QString printableLines(const QString& text) {
    return escaped(text, true);
}

void print(const QString& text) {
    write(stdout, text.toUtf8());
}

bool printOctets(QByteArrayView octets) {
    return write(stdout, octets);
}

bool printsToTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

bool printedAll() {
    return std::fflush(stdout) == 0 && !std::ferror(stdout);
}

void complain(const QString& subject, const QString& cause) {
    const QString where = subject.isEmpty() ? QString() : printable(subject) + QStringLiteral(": ");
    const QString line = QStringLiteral("lummms: ") + where + printable(cause) + u'\n';
    write(stderr, line.toUtf8());
}
