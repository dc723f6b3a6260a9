#pragma once

#include "tools/lummms/exit_status.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QStringList>

#include <algorithm>

/// What the user asked of a command.
struct CommandLine {
    QCommandLineParser options;
    /// The arguments without options, as many as the command takes.
    QStringList files;
    /// The values of each use of the command's many-valued option, in order.
    QList<QStringList> groups;
};

/// One command of lummms, and the manual of it.
struct Command {
    QString name;
    QString summary;
    /// The usage line behind the name; a line for each way of use.
    QStringList usage;
    /// Further text for the help.
    QString description;
    QList<QCommandLineOption> options;
    /// Names of the arguments. One with "..." behind it ("FILE...") may be given more than once, one in
    /// brackets ("[FILE...]") left out.
    QStringList arguments;
    /// Name of an option that takes all values up to the next option; empty for none.
    QString manyValued;
    /// Does the work and gives an EXIT_STATUS.
    int (*run)(const CommandLine& line);
};

/// The options of a command that writes one file: -o, and --force to replace one.
QCommandLineOption outputOption(const QString& description);
QCommandLineOption forceOption();
/// Writes what the command has made to the file of -o, and one that is there only with --force. False after
/// a complaint.
bool writeOutput(const CommandLine& line, const QByteArray& octets);

/// Complains about wrong usage of a command, and gives the exit status for it.
int misused(const QString& command, const QString& cause);

/// Prints a line with the name of the file that comes next, if there are several.
void printHeading(const CommandLine& line, const QString& path);

/// The worst exit status of what `run` does with each of the files.
template <typename Run>
int worstOf(const QStringList& files, Run run) {
    int worst = EXIT_DONE;
    for (const QString& file : files)
        worst = std::max(worst, run(file));
    return worst;
}

Command showCommand();
Command dumpCommand();
Command checkCommand();
Command smilCommand();
Command composeCommand();
Command unpackCommand();
Command renderCommand();
