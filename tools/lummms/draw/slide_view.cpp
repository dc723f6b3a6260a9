#include "tools/lummms/draw/slide_view.h"

#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/draw/wbmp.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace {

constexpr int PICTURE_MEGABYTES = 64;     // a small file may announce a huge picture
constexpr qsizetype MOST_SCANS = 50;      // of a JPEG; each walks the whole picture, and none needs so many
constexpr qsizetype WORDS_OCTETS = 20000; // of a text; far more than anybody reads on a slide

/// Formats of pictures that phones send. Others, whatever plug-ins can read, are left alone.
constexpr const char* PICTURE_FORMATS[] = {"png", "jpeg", "gif", "bmp", "webp"};

/// Nothing is written to the standard error as long as one exists: libraries that decode pictures tell
/// there what they find broken, past every handler.
class SilentErrors {
public:
    SilentErrors() : nowhere_(open("/dev/null", O_WRONLY | O_CLOEXEC)) {
        if (nowhere_ >= 0 && saved_ >= 0)
            dup2(nowhere_, STDERR_FILENO);
    }
    SilentErrors(const SilentErrors&) = delete;
    SilentErrors& operator=(const SilentErrors&) = delete;
    ~SilentErrors() {
        if (saved_ >= 0)
            dup2(saved_, STDERR_FILENO);
        close(saved_);
        close(nowhere_);
    }

private:
    const int saved_ = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nowhere_;
};

VIEW_KIND kindOf(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) {
    switch (type) {
    case MMS_COMP_SMIL_MEDIA_TEXT:
        return VIEW_TEXT;
    case MMS_COMP_SMIL_MEDIA_IMG:
        return VIEW_PICTURE;
    case MMS_COMP_SMIL_MEDIA_VIDEO:
        return VIEW_VIDEO;
    case MMS_COMP_SMIL_MEDIA_AUDIO:
        return VIEW_SOUND;
    default:
        return VIEW_OTHER;
    }
}

bool isGiven(const MMS_COMP_COLOR& color) {
    return color.kind == MMS_COMP_COLOR_NAMED || color.kind == MMS_COMP_COLOR_NUMERIC;
}

QString wordsOf(const MMS_COMP_SMILMultipartBodypart& part) {
    const QArray<char>& octets = part.getBodyData();
    QString words = QString::fromUtf8(octets.data(), std::min(octets.size(), WORDS_OCTETS));
    while (words.endsWith(QChar::Null))
        words.chop(1);
    for (qsizetype i = 0; i < words.size(); ++i)
        if (isUnprintable(words, i) && words.at(i) != u'\n')
            words[i] = words.at(i).isSurrogate() ? QChar(QChar::ReplacementCharacter) : QChar(u' ');
    return words;
}

ObjectView objectView(const Message& message, const MMS_COMP_SMILMediaObject& object) {
    const MMS_COMP_SMILData& presentation = *message.presentation;
    ObjectView view;
    view.kind = kindOf(object.getMediaElementType());
    view.part = message.isMissing(object.getData()) ? nullptr : object.getData();
    const QString location = view.part ? view.part->getContentLocation() : QString();
    view.name = printableStart(location.isEmpty() ? object.getSrc() : location);
    if (view.kind == VIEW_TEXT && view.part)
        view.words = wordsOf(*view.part);
    const QString id = object.getRegionId().trimmed();
    const bool standsInText = id == MMS_COMP_SMILData::getTextRegionId() ||
                              (view.kind == VIEW_TEXT && id != MMS_COMP_SMILData::getImgRegionId());
    view.region = standsInText ? REGION_TEXT : REGION_IMAGE;
    view.fit = MMS_COMP_SMIL_FIT_HIDDEN;
    constexpr unsigned int lookedAt = 50; // regions; a presentation has two
    for (unsigned int i = 0; i < lookedAt; ++i)
        if (const MMS_COMP_SMILRegion* region = presentation.getRegion(i); region && region->getId() == id)
            view.fit = region->getFit();
    return view;
}

} // namespace

SlideView slideView(const Message& message, int index) {
    const MMS_COMP_SMILTimingContainer& slide = *message.presentation->getSlide(index);
    const MMS_COMP_SMILRootLayout* screen = message.presentation->getRootLayout();
    SlideView view{slide.getDur(), Qt::white, Qt::black, {}};
    if (isGiven(slide.getPageColor()))
        view.page = slide.getPageColor().color;
    else if (screen && isGiven(*screen->getBackgroundColor()))
        view.page = screen->getBackgroundColor()->color;
    if (isGiven(slide.getTextColor()))
        view.text = slide.getTextColor().color;
    else if (qGray(view.page.rgb()) < 100) // a text that can be read on a dark page
        view.text = Qt::white;
    for (const MMS_COMP_SMILMediaObject* object : slide)
        view.objects += objectView(message, *object);
    return view;
}

void makeSlidesOfParts(Message& message) {
    MMS_COMP_SMILData& presentation = *message.presentation;
    MMS_COMP_SMILParser::updateToVarnelioRegion(&presentation);
    for (int i = 0; i < message.body.getPartCount(); ++i) {
        MMS_COMP_SMILMultipartBodypart* part = message.body.getBodypartByIndex(i, false);
        const auto type = MMS_COMP_SMILParser::getTypeEnum(part->getContentType().toLower());
        if (type == MMS_COMP_SMIL_MEDIA_OTHER)
            continue;
        auto object = std::make_unique<MMS_COMP_SMILMediaObject>(&message.body);
        object->setMediaElementType(type);
        object->setSrc(part->getContentLocation());
        object->setRegionId(type == MMS_COMP_SMIL_MEDIA_TEXT ? MMS_COMP_SMILData::getTextRegionId()
                                                             : MMS_COMP_SMILData::getImgRegionId());
        object->setData(part);
        MMS_COMP_SMILTimingContainer* slide = presentation.getSlide(presentation.getTotalSlidesNum() - 1);
        if (!slide || !slide->canBeInserted(mediaKindOfType(type)->tag))
            slide = presentation.appendSlide();
        slide->appendObject(object.release());
    }
}

QImage pictureOf(const MMS_COMP_SMILMultipartBodypart& part, QByteArray* format) {
    QByteArray octets = part.getBodyData();
    if (part.getSubType().endsWith(QLatin1String("wbmp"), Qt::CaseInsensitive)) { // the octets do not tell
        if (format)
            *format = "wbmp";
        return wbmpPicture(octets);
    }
    QImageReader::setAllocationLimit(PICTURE_MEGABYTES);
    QBuffer buffer(&octets);
    QImageReader reader(&buffer);
    const QByteArray found = reader.format(); // by content; a name does not count
    const bool isKnown = std::any_of(std::begin(PICTURE_FORMATS), std::end(PICTURE_FORMATS),
                                     [&found](const char* known) { return found == known; });
    if (format)
        *format = found;
    if (!isKnown || (found == "jpeg" && octets.count("\xFF\xDA") > MOST_SCANS))
        return QImage();
    const SilentErrors silent;
    return reader.read();
}

QString durationLabel(int milliseconds) {
    if (milliseconds == -2)
        return QStringLiteral("no end");
    return milliseconds < 0 ? QStringLiteral("no duration") : spanOfTime(milliseconds);
}
