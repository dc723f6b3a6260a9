#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// Whether the unit at `at` could steer a terminal or turn a line around: a control, a mark of
/// direction or line, half of a surrogate pair.
bool isUnprintable(QStringView text, qsizetype at);

/// A text from a message as it may be shown on a terminal: closing NULs left out, and every unit that
/// is unprintable written as \u and four hexadecimal digits.
QString printable(const QString& text);

/// The first 60 characters of such a text, with " ..." behind them when it has more, or when `more` says
/// so: for what a message may repeat thousands of times, however long it is.
QString printableStart(const QString& text, bool more = false);

/// The printable form of a document of several lines, whose line ends stay. JSON remains the same JSON by it.
QString printableLines(const QString& text);

/// Writes to the standard output, in UTF-8.
void print(const QString& text);
/// Writes octets to the standard output as they are. False when that fails.
bool printOctets(QByteArrayView octets);

/// Whether the standard output is a terminal.
bool printsToTerminal();

/// Whether all that was printed has been written out.
bool printedAll();

/// Writes "lummms: subject: cause" as one line to the standard error; without a subject only the cause.
void complain(const QString& subject, const QString& cause);
