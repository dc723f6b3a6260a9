// lummms check: reports what will go wrong with a message.

#include "tools/lummms/check/findings.h"
#include "tools/lummms/command.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"

#include <algorithm>

namespace {

int checkOne(const CommandLine& line, const QString& path) {
    Message message(READING_SENT);
    QString cause;
    if (!message.read(path, cause)) {
        complain(path, cause);
        return EXIT_UNUSABLE;
    }
    const QList<Finding> findings = findingsIn(message);
    if (line.options.isSet("json")) {
        print(printableLines(QString::fromUtf8(findingsForProgram(findings))));
    } else {
        printHeading(line, path);
        print(findingsForPerson(findings));
    }
    const bool isFine = std::all_of(findings.begin(), findings.end(),
                                    [](const Finding& finding) { return finding.severity == FINDING_PHONE; });
    return isFine ? EXIT_DONE : EXIT_MALFORMED;
}

int check(const CommandLine& line) {
    return worstOf(line.files, [&](const QString& path) { return checkOne(line, path); });
}

} // namespace

Command checkCommand() {
    return {
        "check",
        "Reports what will go wrong with a message.",
        {"[--json] FILE..."},
        "Prints a line for each finding: severity, offset if there is one, and a sentence.\n"
        "  error    malformed, or something is missing: a mandatory field, the part of a reference;\n"
        "           a presentation that cannot be read, a message larger than the limit\n"
        "  warning  a deviation from the standard that does not prevent reading, fields out of order,\n"
        "           a part without a reference, parts with the same name, a region outside the screen\n"
        "  phone    what the phone loses or reads differently, and why\n"
        "The Date and the layout, which the phone always replaces, and names of charsets are not reported.\n"
        "A message without findings prints nothing. Exit status 1 with errors or warnings.\n",
        {{"json", "Prints the findings as JSON."}},
        {"FILE..."},
        {},
        check,
    };
}
