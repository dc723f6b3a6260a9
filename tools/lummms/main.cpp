// lummms shows, checks and makes multimedia messages. Each command has a file of its own; this one finds the
// command, parses its options and prints its help.

#include "tools/lummms/command.h"
#include "tools/lummms/files.h"
#include "tools/lummms/terminal.h"

#include <QFileInfo>
#include <QtGlobal>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace {

QList<Command> allCommands() {
    return {showCommand(),    dumpCommand(),   checkCommand(), unpackCommand(),
            composeCommand(), renderCommand(), smilCommand()};
}

QString overview(const QList<Command>& commands) {
    QString text = QStringLiteral("lummms shows, checks and makes multimedia messages (MMS).\n\n"
                                  "Usage: lummms COMMAND ...\n\nCommands:\n");
    for (const Command& command : commands)
        text += QStringLiteral("  %1  %2\n").arg(command.name.leftJustified(8), command.summary);
    return text +
           QStringLiteral("  help      Shows this text, or the help of a command.\n\n"
                          "lummms COMMAND --help shows all options of a command, lummms --version the "
                          "version.\n"
                          "A FILE \"-\" is standard input or standard output. Pipes are read to their "
                          "end, up to 64 MiB.\n"
                          "The phone: the phone for which the library's decoders were written; its rules "
                          "differ from the\nstandard in places.\n\n"
                          "Exit status: 0 done; 1 the input is malformed, what could be read was "
                          "used;\n2 wrong usage, a file that cannot be read or written, a message that "
                          "is too large or has nothing to draw.\n");
}

/// An option as typed: "-o, --output FILE".
QString typed(const QCommandLineOption& option) {
    QStringList names;
    for (const QString& name : option.names())
        names += (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
    const QString value = option.valueName();
    return names.join(QStringLiteral(", ")) + (value.isEmpty() ? value : u' ' + value);
}

QString help(const Command& command) {
    QString text = command.summary + QStringLiteral("\n\n");
    for (const QString& usage : command.usage)
        text += QStringLiteral("Usage: lummms %1 %2\n").arg(command.name, usage);
    text += u'\n' + command.description + QStringLiteral("\nOptions:\n");
    QList<std::pair<QString, QString>> rows;
    for (const QCommandLineOption& option : command.options)
        rows += {typed(option), option.description()};
    rows += {QStringLiteral("--help"), QStringLiteral("Shows this text.")};
    qsizetype width = 0;
    for (const auto& row : rows)
        width = std::max(width, row.first.size());
    for (const auto& [option, description] : rows)
        text += QStringLiteral("  %1  %2\n").arg(option.leftJustified(width), description);
    return text;
}

/// Removes the option `name` and its values from the arguments: all that follow it up to the next option.
/// QCommandLineParser has no such options.
QList<QStringList> takeGroups(QStringList& arguments, const QString& name) {
    QList<QStringList> groups;
    if (name.isEmpty())
        return groups;
    const QString option = QStringLiteral("--") + name;
    QStringList others;
    bool inGroup = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--")) { // only file names follow
            others += arguments.mid(i);
            break;
        }
        if (argument == option) {
            groups += QStringList();
            inGroup = true;
        } else if (inGroup && (argument == STANDARD_STREAM || !argument.startsWith(u'-'))) {
            groups.last() += argument;
        } else {
            inGroup = false;
            others += argument;
        }
    }
    arguments = others;
    return groups;
}

/// The option that was not understood, as typed: for "-p.png" the parser names single letters.
QString whyNotUnderstood(const QCommandLineParser& options, const QStringList& arguments) {
    const QStringList unknown = options.unknownOptionNames();
    for (const QString& argument : arguments)
        if (!unknown.isEmpty() && argument.size() > 1 && argument.startsWith(u'-') &&
            argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1).startsWith(unknown.first()))
            return QStringLiteral("unknown option '%1'").arg(argument) +
                   (QFileInfo::exists(argument) ? QStringLiteral("; the file is ./%1").arg(argument)
                                                : QString());
    return options.errorText();
}

/// What is wrong with the number of arguments; empty if it is right.
QString whyNotAsMany(const QStringList& names, const QStringList& given) {
    qsizetype required = 0;
    bool anyNumber = false;
    for (const QString& name : names) {
        const bool isOptional = name.startsWith(u'[');
        anyNumber = anyNumber || name.contains(QLatin1String("..."));
        if (!isOptional && ++required > given.size())
            return QString(name).remove(QLatin1String("...")) + QStringLiteral(" is missing");
    }
    if (!anyNumber && given.size() > names.size())
        return QStringLiteral("unexpected argument '%1'").arg(given.at(names.size()));
    return QString();
}

int run(const Command& command, QStringList arguments) {
    CommandLine line;
    line.groups = takeGroups(arguments, command.manyValued);
    const QCommandLineOption helpOption(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    line.options.addOptions(command.options);
    line.options.addOption(helpOption);
    // not process(), which would exit with its own status
    const bool understood = line.options.parse(QStringList(command.name) + arguments);
    if (line.options.isSet(helpOption)) {
        print(help(command));
        return EXIT_DONE;
    }
    if (!understood)
        return misused(command.name, whyNotUnderstood(line.options, arguments));
    line.files = line.options.positionalArguments();
    const QString wrong = whyNotAsMany(command.arguments, line.files);
    return wrong.isEmpty() ? command.run(line) : misused(command.name, wrong);
}

int runNamed(QStringList arguments) {
    const QList<Command> commands = allCommands();
    if (arguments.isEmpty()) {
        complain(QString(), QStringLiteral("no command given (see lummms help)"));
        return EXIT_UNUSABLE;
    }
    QString name = arguments.takeFirst();
    const QStringList helpNames{QStringLiteral("help"), QStringLiteral("--help"), QStringLiteral("-h")};
    const bool wantsHelp = helpNames.contains(name);
    if (wantsHelp && (arguments.isEmpty() || helpNames.contains(arguments.last()))) {
        print(overview(commands));
        return EXIT_DONE;
    }
    if (wantsHelp) {
        name = arguments.takeFirst();
        arguments.prepend(QStringLiteral("--help"));
    }
    const bool wantsVersion = name == QLatin1String("--version");
    if ((wantsVersion && !arguments.isEmpty()) || (wantsHelp && arguments.size() > 1)) {
        complain(QString(),
                 QStringLiteral("unexpected argument '%1' (see lummms help)").arg(arguments.last()));
        return EXIT_UNUSABLE;
    }
    if (wantsVersion) {
        print(QStringLiteral("lummms " LUM_VERSION "\n"));
        return EXIT_DONE;
    }
    for (const Command& command : commands)
        if (command.name == name)
            return run(command, arguments);
    complain(name, QStringLiteral("no such command (see lummms help)"));
    return EXIT_UNUSABLE;
}

QtMessageHandler qtsHandler = nullptr;

/// Drops Qt's own notes, such as on broken pictures: lummms reports each error itself, on one line. Other
/// categories, such as this library's, still pass.
void dropNotesOfQt(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const QLatin1String category(context.category);
    const bool isNote = type == QtDebugMsg || type == QtInfoMsg || type == QtWarningMsg;
    if (!isNote || !(category == QLatin1String("default") || category.startsWith(QLatin1String("qt."))))
        qtsHandler(type, context, text);
}

/// Opens closed standard streams on /dev/null. A file opened later would otherwise take their place and
/// receive the program's output.
void keepStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0)
            (void)open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY);
}

} // namespace

int main(int argc, char** argv) {
    keepStandardStreams();
    qtsHandler = qInstallMessageHandler(dropNotesOfQt);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    const int status = runNamed(arguments);
    if (!printedAll()) {
        complain(QStringLiteral("standard output"), QStringLiteral("cannot be written"));
        return EXIT_UNUSABLE;
    }
    return status;
}
