#include "tools/lummms/command.h"

#include "tools/lummms/files.h"
#include "tools/lummms/terminal.h"

QCommandLineOption outputOption(const QString& description) {
    return {{"o", "output"}, description, "FILE"};
}

QCommandLineOption forceOption() {
    return QCommandLineOption("force", "Replaces an existing file.");
}

bool writeOutput(const CommandLine& line, const QByteArray& octets) {
    const QString path = line.options.value("output");
    const IfThere ifThere = line.options.isSet("force") ? IfThere::REPLACE : IfThere::REFUSE;
    QString cause;
    if (saveFile(path, octets, ifThere, cause))
        return true;
    complain(path, cause);
    return false;
}

int misused(const QString& command, const QString& cause) {
    complain(command, QStringLiteral("%1 (see lummms %2 --help)").arg(cause, command));
    return EXIT_UNUSABLE;
}

void printHeading(const CommandLine& line, const QString& path) {
    if (line.files.size() > 1)
        print(QStringLiteral("==> %1 <==\n").arg(printable(path)));
}
