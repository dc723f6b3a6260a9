// lummms compose: a message of any kind, made of options, texts and files.

#include "tools/lummms/command.h"
#include "tools/lummms/compose/assembly.h"
#include "tools/lummms/compose/draft.h"
#include "tools/lummms/compose/fitting.h"
#include "tools/lummms/compose/header_options.h"
#include "tools/lummms/terminal.h"

namespace {

bool refuse(const QString& subject, const QString& cause) {
    complain(subject, cause);
    return false;
}

/// Looks whether there is content only where the kind has a body.
bool checkBody(const MessageKind& kind, const CommandLine& line) {
    const char* given = !line.groups.isEmpty()         ? "--slide"
                        : line.options.isSet("attach") ? "--attach"
                                                       : nullptr;
    return !given || carries(kind, FIELD_CONTENT_TYPE) ||
           refuse(given, QStringLiteral("an %1 has no body").arg(QLatin1String(kind.name)));
}

/// Looks whether there is anything to send.
bool checkContent(const MessageKind& kind, const CommandLine& line, const Draft& draft) {
    return !carries(kind, FIELD_CONTENT_TYPE) || !draft.isEmpty() || line.options.isSet("subject") ||
           refuse(QString(),
                  QStringLiteral("nothing to send: neither --slide, --attach nor --subject is given"));
}

/// Encodes a message, whose pictures are made smaller until it fits.
bool encodeFitting(const CommandLine& line, bool hasBody, qint64 limit, MMS_UA_UAMsg& header, Draft& draft,
                   QByteArray& pdu) {
    const QString path = line.options.value("output");
    for (;;) {
        qint64 octets = draft.size();
        if (octets <= limit) {
            QString cause;
            if (!encodeMessage(header, hasBody ? &draft : nullptr, pdu, cause))
                return refuse(path, cause);
            octets = pdu.size();
        }
        if (octets <= limit)
            return true;
        if (line.options.isSet("keep-pictures") || !makeSmaller(draft, octets - limit)) {
            complainOfSize(path, octets, limit, whyNotSmaller(draft));
            return false;
        }
    }
}

bool composeMessage(const CommandLine& line) {
    qint64 limit = 0;
    Draft draft;
    MMS_UA_UAMsg header;
    QByteArray pdu;
    const QString path = line.options.value("output");
    const QString word = line.options.value("kind");
    const MessageKind* kind = findKind(word);
    if (path.isEmpty())
        return refuse("-o", QStringLiteral("the file to write is missing"));
    if (!kind)
        return refuse("--kind", QStringLiteral("'%1' is none of %2").arg(word, kindWords()));
    const bool hasBody = carries(*kind, FIELD_CONTENT_TYPE);
    if (!checkBody(*kind, line) || !setHeader(*kind, line.options, header) || !readSizeLimit(limit) ||
        !readDraft(line, limit, draft) || !checkContent(*kind, line, draft) ||
        !encodeFitting(line, hasBody, limit, header, draft, pdu) || !writeOutput(line, pdu))
        return false;
    tellChanges(draft);
    if (hasBody && draft.isEmpty())
        complain(path, QStringLiteral("the message is its subject alone"));
    return true;
}

int compose(const CommandLine& line) {
    return composeMessage(line) ? EXIT_DONE : EXIT_UNUSABLE;
}

QList<QCommandLineOption> allOptions() {
    const QList<QCommandLineOption> first{
        outputOption("The file to write."),
        forceOption(),
        {"kind", "The kind of message; send-req if not given.", "KIND", "send-req"},
    };
    const QList<QCommandLineOption> last{
        {"slide", "One slide; may be given again.", "DURATION ITEM ..."},
        {"attach", "A file beside the slides; may be given again.", "FILE"},
        {"keep-pictures", "Refuses a message that is too large, and makes no picture smaller."},
    };
    return first + headerOptions() + last;
}

} // namespace

Command composeCommand() {
    return {
        "compose",
        "Makes a message, usually one to send (m-send-req), out of texts and files.",
        {"-o FILE --to ADDRESS [OPTION ...] [--slide DURATION ITEM ...] ...",
         "-o FILE --kind KIND [OPTION ...]"},
        QStringLiteral("KIND is one of %1.\n").arg(kindWords()) +
            "A field that it does not have is refused, one that it must have is asked for; only send-req "
            "and\n"
            "retrieve-conf have slides and attachments.\n"
            "An ADDRESS with \"@\" is an e-mail address, any other a phone number. A MOMENT is given in\n"
            "ISO 8601, in local time unless it names a zone; a TIME is a number of seconds from now or a\n"
            "MOMENT. CLASS, PRIORITY and STATUS may be numbers from 128 to 255, too.\n"
            "A slide is shown for DURATION (5 or 5s, 800ms, 1min, indefinite) and holds at most one\n"
            "text, one picture or video and one sound. An ITEM is a file, whose kind is found out by\n"
            "its name and content, or a text given as text:WORDS.\n"
            "If the message is larger than what networks let through (300 KB, or as many as the environment\n"
            "variable LUM_MMS_MAX_SIZE_KB says), its pictures are made smaller: upright, 640 x 480 pixels "
            "or\n"
            "less, as JPEG, the largest ones first. Moving pictures stay as they are. A message that is too\n"
            "large all the same is refused, and nothing is written.\n",
        allOptions(),
        {},
        "slide",
        compose,
    };
}
