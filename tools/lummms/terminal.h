#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// Whether the unit at `at` could control a terminal or change the order of a line: a control character, a
/// direction or line mark, half of a surrogate pair.
bool isUnprintable(QStringView text, qsizetype at);

/// A text from a message that is safe to show on a terminal: without closing NULs, and unprintable units
/// written as \u and four hexadecimal digits.
QString printable(const QString& text);

/// The first 60 characters of such a text, followed by " ..." when there are more or `more` is set. Bounds
/// the output for texts that a message can repeat thousands of times.
QString printableStart(const QString& text, bool more = false);

/// The same for a document of several lines: line ends stay, and JSON keeps its meaning.
QString printableLines(const QString& text);

/// Writes UTF-8 to standard output.
void print(const QString& text);
/// Writes octets to standard output. False on failure.
bool printOctets(QByteArrayView octets);

/// Whether standard output is a terminal.
bool printsToTerminal();

/// Whether all output was written.
bool printedAll();

/// Writes "lummms: subject: cause" to standard error as one line; without a subject only the cause.
void complain(const QString& subject, const QString& cause);
