// lummms unpack: writes the parts of messages to files.

#include "multipart/body_part.h"
#include "tools/lummms/command.h"
#include "tools/lummms/message.h"
#include "tools/lummms/part_files.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

/// A part and its number as in `lummms show`: 3.1 is the first part inside the third.
struct NumberedPart {
    QString number;
    const Part* part;
};

void addPart(QList<NumberedPart>& parts, const QString& number, const Part& part) {
    parts += {number, &part};
    for (int i = 0; i < part.getSubBodyCount(); ++i)
        addPart(parts, QStringLiteral("%1.%2").arg(number).arg(i + 1),
                *part.getSubBody(static_cast<unsigned int>(i)));
}

QList<NumberedPart> allParts(MMS_COMP_SMILMultipart& body) {
    QList<NumberedPart> parts;
    for (int i = 0; i < body.getPartCount(); ++i)
        addPart(parts, QString::number(i + 1), *body.getBodypartByIndex(i, false));
    return parts;
}

/// Whether the text is one of the part's names.
bool isNamed(const NumberedPart& numbered, const QString& wanted) {
    const Part& part = *numbered.part;
    const QStringList names{part.getContentLocation(), safeFileName(part.getContentLocation()),
                            part.getContentID()};
    return !wanted.isEmpty() && (names.contains(wanted) || names.last() == u'<' + wanted + u'>');
}

/// The parts that the text names: the one with that number, which takes precedence, or those with that name.
QList<NumberedPart> meant(const QList<NumberedPart>& parts, const QString& wanted) {
    QList<NumberedPart> named;
    for (const NumberedPart& part : parts) {
        if (part.number == wanted)
            return {part};
        if (isNamed(part, wanted))
            named += part;
    }
    return named;
}

/// Unpacks the messages of one command line.
class Unpacker {
public:
    explicit Unpacker(const CommandLine& line);
    int unpack();

private:
    int unpackOne(const QString& path);
    bool choose(const QString& path, QList<NumberedPart>& parts) const;
    bool writeOne(const QString& path, const QList<NumberedPart>& parts) const;
    bool writeAll(const QString& path, const QList<NumberedPart>& parts);

    const CommandLine& line_;
    const bool lists_;
    const bool writesOne_; ///< one part, to the file of -o
    QStringList files_;
    QString directory_; ///< empty if none is needed
    FreeNames folders_; ///< names of subdirectories, one for each message
};

Unpacker::Unpacker(const CommandLine& line)
    : line_(line), lists_(line.options.isSet("list")), writesOne_(line.options.isSet("output")),
      files_(line.files) {
    if (!lists_ && !writesOne_ && files_.size() > 1)
        directory_ = filePathOf(files_.takeLast());
}

int Unpacker::unpack() {
    if (!lists_ && !writesOne_ && directory_.isEmpty())
        return misused("unpack", QStringLiteral("DIR is missing"));
    if (writesOne_ && (line_.options.values("part").size() != 1 || files_.size() != 1))
        return misused("unpack", QStringLiteral("-o needs one FILE and one --part"));
    if (!directory_.isEmpty() && !QDir().mkpath(directory_)) {
        complain(directory_, QStringLiteral("the directory cannot be created"));
        return EXIT_UNUSABLE;
    }
    return worstOf(files_, [this](const QString& path) { return unpackOne(path); });
}

/// Reduces `parts` to those of --part. Reports a missing one and returns false.
bool Unpacker::choose(const QString& path, QList<NumberedPart>& parts) const {
    const QStringList wanted = line_.options.values("part");
    if (wanted.isEmpty())
        return true;
    bool areThere = true;
    QSet<QString> numbers;
    for (const QString& name : wanted) {
        const QList<NumberedPart> found = meant(parts, name);
        for (const NumberedPart& part : found)
            numbers += part.number;
        if (found.isEmpty()) {
            complain(path, QStringLiteral("has no part '%1' (see --list)").arg(name));
            areThere = false;
        }
    }
    parts.removeIf([&numbers](const NumberedPart& part) { return !numbers.contains(part.number); });
    return areThere;
}

void list(const QList<NumberedPart>& parts) {
    for (const auto& [number, part] : parts) {
        const QString location = part->getContentLocation();
        const QString name = printable(location.isEmpty() ? part->getContentID() : location);
        print(QStringLiteral("%1  %2  %3%4\n")
                  .arg(number, typeOf(*part), counted(part->getBodyData().size(), "octet"),
                       name.isEmpty() ? name : QStringLiteral("  ") + name));
    }
}

bool Unpacker::writeOne(const QString& path, const QList<NumberedPart>& parts) const {
    if (parts.size() == 1)
        return writeOutput(line_, parts.first().part->getBodyData());
    if (!parts.isEmpty()) // a missing part was reported already
        complain(path, QStringLiteral("'%1' names %2; give the number of one")
                           .arg(line_.options.value("part"), counted(parts.size(), "part")));
    return false;
}

bool Unpacker::writeAll(const QString& path, const QList<NumberedPart>& parts) {
    QString directory = directory_;
    if (files_.size() > 1) {
        QFileInfo there;
        do { // links and files of that name are left alone
            there.setFile(directory_ + u'/' + folders_.next(safeFileName(path)));
        } while (there.isSymLink() || (there.exists() && !there.isDir()));
        directory = there.filePath();
    }
    if (!QDir().mkpath(directory)) {
        complain(directory, QStringLiteral("the directory cannot be created"));
        return false;
    }
    PartFiles files(directory, line_.options.isSet("force"));
    bool areWritten = true;
    for (const NumberedPart& numbered : parts) {
        const bool isContainer = numbered.part->getSubBodyCount() && numbered.part->getBodyData().isEmpty();
        if (!isContainer && !files.write(*numbered.part))
            areWritten = false; // continues with the other parts
    }
    return areWritten;
}

int Unpacker::unpackOne(const QString& path) {
    Message message(readingAskedFor(line_));
    QString cause;
    if (!message.read(path, cause)) {
        complain(path, cause);
        return EXIT_UNUSABLE;
    }
    QList<NumberedPart> parts = allParts(message.body);
    bool isDone = choose(path, parts);
    if (lists_) {
        printHeading(line_, path);
        list(parts);
    } else if (!(writesOne_ ? writeOne(path, parts) : writeAll(path, parts))) {
        isDone = false;
    }
    return std::max<int>(message.verdict(path), isDone ? EXIT_DONE : EXIT_UNUSABLE);
}

int unpack(const CommandLine& line) {
    return Unpacker(line).unpack();
}

} // namespace

Command unpackCommand() {
    return {
        "unpack",
        "Writes the parts of messages into a directory.",
        {"[--phone] [--force] [--part N|NAME] FILE DIR", "[--phone] [--force] [--part N|NAME] FILE... DIR",
         "[--phone] [--force] --part N|NAME -o OUTPUT FILE", "[--phone] --list FILE..."},
        "Writes each part, nested parts too, into DIR under the file name of its\n"
        "Content-Location. DIR is created if needed; with several messages each gets a subdirectory\n"
        "named after its file. A name that exists already gets a number (photo_0.jpg); with --force\n"
        "the file is replaced. Prints a line for each file. A part that cannot be written is\n"
        "reported, and the others are written.\n",
        {
            {"list", "Prints number, type, size and name of each part, and writes nothing."},
            {"part",
             "Writes only the part of that number or name (Content-Location or Content-ID); may be given "
             "again.",
             "N|NAME"},
            outputOption("The file for a single part."),
            forceOption(),
            phoneOption(),
        },
        {"FILE...", "[DIR]"},
        {},
        unpack,
    };
}
