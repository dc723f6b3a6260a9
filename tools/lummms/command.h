#pragma once

#include "tools/lummms/exit_status.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QStringList>

#include <algorithm>

/// The parsed command line of a command.
struct CommandLine {
    QCommandLineParser options;
    /// The arguments without options; their number fits Command::arguments.
    QStringList files;
    /// The values of each use of the option Command::manyValued, in order.
    QList<QStringList> groups;
};

/// A command of lummms, with its help.
struct Command {
    QString name;
    QString summary;
    /// What follows the name in the usage lines, one entry a line.
    QStringList usage;
    /// Further text of the help.
    QString description;
    QList<QCommandLineOption> options;
    /// Names of the arguments. With "..." ("FILE...") an argument may be repeated, in brackets ("[FILE...]")
    /// it may be left out.
    QStringList arguments;
    /// Name of the option that takes all values up to the next option; empty for none.
    QString manyValued;
    /// Runs the command; returns an EXIT_STATUS.
    int (*run)(const CommandLine& line);
};

/// The options of a command that writes one file: -o, and --force to replace one.
QCommandLineOption outputOption(const QString& description);
QCommandLineOption forceOption();
/// Writes the result to the file of -o; an existing file only with --force. On failure reports it and returns
/// false.
bool writeOutput(const CommandLine& line, const QByteArray& octets);

/// Reports wrong usage of a command and returns its exit status.
int misused(const QString& command, const QString& cause);

/// Prints a heading with the file name if there are several files.
void printHeading(const CommandLine& line, const QString& path);

/// Runs `run` for each file and returns the worst exit status.
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
