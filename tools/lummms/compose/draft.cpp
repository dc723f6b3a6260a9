#include "tools/lummms/compose/draft.h"

#include "platform/utility/setting.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/command.h"
#include "tools/lummms/compose/fitting.h"
#include "tools/lummms/files.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "util/mms_comp_util.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr qint64 MOST_OF_PHOTO = 64 * 1024 * 1024; // octets of the largest file to be read as a picture
const QString TEXT_PREFIX = "text:";               // marks a slide's text
const QString SLIDE = "--slide";

bool refuse(const QString& subject, const QString& cause) {
    complain(subject, cause);
    return false;
}

/// A name without characters that break a SMIL text (values are not escaped), and with "_" for white space.
QString nameForSmil(const QString& name) {
    QString clean = cleanName(MMS_COMP_Util::stripePath(name), u"\"'<>\uFFFE\uFFFF");
    std::replace_if(
        clean.begin(), clean.end(), [](QChar c) { return c.isSpace(); }, u'_');
    return clean;
}

/// Reads slides and attachments. Members that can fail report it and return false.
class DraftReader {
public:
    DraftReader(qint64 limit, bool keepPictures, Draft& draft)
        : limit_(limit), keepPictures_(keepPictures), draft_(draft) {}

    bool readSlide(const QStringList& values);
    bool readAttachment(const QString& path);

private:
    bool readDuration(const QString& text, int& duration);
    bool readItem(const QString& value, Item& item);
    bool readFile(const QString& path, Item& item);
    bool makeFit(Item& item);
    bool checkItem(const Item& item);
    bool checkRoom(const QList<Item>& items);
    bool refuseSlide(const QString& cause);

    qint64 limit_;
    bool keepPictures_;
    Draft& draft_;
    qint64 loaded_ = 0; // octets of all files except pictures that can be made smaller
};

bool DraftReader::refuseSlide(const QString& cause) {
    return refuse(SLIDE, QStringLiteral("slide %1: %2").arg(draft_.slides.size() + 1).arg(cause));
}

bool DraftReader::readDuration(const QString& text, int& duration) {
    static const QRegularExpression form("^([0-9]+(\\.[0-9]+)?)(ms|s|min|h)?\\z|^indefinite\\z");
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return refuseSlide(
            QStringLiteral("'%1' is not a duration such as 5, 2.5s, 800ms, 1min or indefinite").arg(text));
    const bool isBare = match.hasCaptured(1) && !match.hasCaptured(3);
    duration = MMS_COMP_SMILParser::parseDur(isBare ? text + u's' : text);
    return duration != 0 || refuseSlide(QStringLiteral("the duration is 0: '%1'").arg(text));
}

bool DraftReader::readFile(const QString& path, Item& item) {
    const qint64 size = QFileInfo(filePathOf(path)).size(); // checked before reading
    if (loaded_ + size > (keepPictures_ ? limit_ : std::max(limit_, MOST_OF_PHOTO))) {
        complainOfSize(path, loaded_ + size, limit_);
        return false;
    }
    QString cause;
    if (!loadFile(path, item.octets, cause))
        return refuse(path, cause);
    item.name = path;
    item.type = mediaTypeOf(path, item.octets);
    item.src =
        nameWithExtension(path == STANDARD_STREAM ? QStringLiteral("stdin") : nameForSmil(path), item.type);
    return makeFit(item);
}

bool DraftReader::makeFit(Item& item) {
    const bool mayBeSmaller = !keepPictures_ && item.kind() == MMS_COMP_SMIL_MEDIA_IMG;
    const qint64 others = mayBeSmaller ? 0 : loaded_;
    while (mayBeSmaller && item.octets.size() > limit_ && makeSmaller(item)) {
    }
    if (!mayBeSmaller)
        loaded_ += item.octets.size();
    if (others + item.octets.size() <= limit_)
        return true;
    complainOfSize(item.name, others + item.octets.size(), limit_,
                   item.picture ? item.picture->cause() : QString());
    return false;
}

bool DraftReader::readItem(const QString& value, Item& item) {
    if (!value.startsWith(TEXT_PREFIX))
        return readFile(value, item) && checkItem(item);
    item.name = value;
    item.src = QStringLiteral("text.txt");
    item.type = {QStringLiteral("text"), QStringLiteral("plain")};
    item.octets = value.mid(TEXT_PREFIX.size()).toUtf8();
    return checkItem(item);
}

bool DraftReader::checkItem(const Item& item) {
    const auto kind = item.kind();
    const bool isText = kind == MMS_COMP_SMIL_MEDIA_TEXT;
    if (kind == MMS_COMP_SMIL_MEDIA_OTHER)
        return refuse(item.name, QStringLiteral("slide %1 cannot show %2/%3; --attach sends it along")
                                     .arg(draft_.slides.size() + 1)
                                     .arg(item.type.type, item.type.subType));
    if (isText ? item.view().trimmed().isEmpty() : item.octets.isEmpty())
        return refuseSlide(QStringLiteral("'%1' is empty").arg(item.name));
    if (isText && !item.view().isValidUtf8())
        return refuse(item.name, QStringLiteral("the text is not in UTF-8"));
    return true;
}

/// Checks that all items of a slide fit into it.
bool DraftReader::checkRoom(const QList<Item>& items) {
    QString kept[3];
    constexpr const char* places[] = {"one sound", "one picture or video", "one text"};
    for (const Item& item : items) {
        const auto kind = item.kind();
        const int place = kind == MMS_COMP_SMIL_MEDIA_TEXT ? 2 : kind == MMS_COMP_SMIL_MEDIA_AUDIO ? 0 : 1;
        if (!kept[place].isNull())
            return refuseSlide(QStringLiteral("a slide has at most %1, not both '%2' and '%3'")
                                   .arg(QLatin1String(places[place]), kept[place], item.name));
        kept[place] = item.name;
    }
    return true;
}

bool DraftReader::readSlide(const QStringList& values) {
    if (values.size() < 2)
        return refuseSlide(QStringLiteral("a duration and at least one item are needed"));
    SlideDraft slide{};
    if (!readDuration(values.first(), slide.duration))
        return false;
    for (const QString& value : values.mid(1)) {
        Item item;
        if (!readItem(value, item))
            return false;
        slide.items += item;
    }
    if (!checkRoom(slide.items))
        return false;
    draft_.slides += slide;
    return true;
}

bool DraftReader::readAttachment(const QString& path) {
    Item item;
    if (!readFile(path, item))
        return false;
    draft_.attachments += item;
    return true;
}

} // namespace

MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE Item::kind() const {
    return MMS_COMP_SMILParser::getTypeEnum(type.type);
}

qint64 Draft::size() const {
    qint64 octets = 0;
    forEachItem([&octets](const Item& item) { octets += item.octets.size(); });
    return octets;
}

bool readSizeLimit(qint64& octets) {
    static const QString variable = "LUM_MMS_MAX_SIZE_KB";
    static const QRegularExpression number("^[0-9]*[1-9][0-9]*\\z");
    const QString text = qEnvironmentVariable("LUM_MMS_MAX_SIZE_KB");
    octets = qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024;
    return text.isEmpty() || number.match(text).hasMatch() ||
           refuse(variable, QStringLiteral("'%1' is not a number of kilobytes").arg(text));
}

void complainOfSize(const QString& subject, qint64 octets, qint64 limit, const QString& cause) {
    complain(subject, QStringLiteral("%1 are more than the %2 that a message may have%3")
                          .arg(counted(octets, "octet"), counted(limit, "octet"),
                               cause.isEmpty() ? QString() : QStringLiteral("; ") + cause));
}

bool readDraft(const CommandLine& line, qint64 limit, Draft& draft) {
    DraftReader reader(limit, line.options.isSet(QStringLiteral("keep-pictures")), draft);
    const QStringList attachments = line.options.values(QStringLiteral("attach"));
    return std::all_of(line.groups.begin(), line.groups.end(),
                       [&reader](const QStringList& values) { return reader.readSlide(values); }) &&
           std::all_of(attachments.begin(), attachments.end(),
                       [&reader](const QString& path) { return reader.readAttachment(path); });
}
