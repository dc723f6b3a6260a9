#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QStringList>

/// What the user asked of a command.
struct CommandLine {
    QCommandLineParser options;
    /// The arguments without options, as many as the command has names for.
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
    /// Names of the arguments that must be given.
    QStringList arguments;
    /// Name of an option that takes all values up to the next option; empty for none.
    QString manyValued;
    /// Does the work and gives an EXIT_STATUS.
    int (*run)(const CommandLine& line);
};

Command showCommand();
Command smilCommand();
Command composeCommand();
Command unpackCommand();
Command renderCommand();
