#include "tools/lummms/draw/slide_view.h"

#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

#include <algorithm>
#include <memory>

namespace {

constexpr int MOST_OBJECTS = 20; // of a slide; phones show three at a time

/// The kind of a `ref` is that of its part's type.
VIEW_KIND kindOf(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE element, const MMS_COMP_SMILMultipartBodypart* part) {
    const auto type = element == MMS_COMP_SMIL_MEDIA_REF && part
                          ? MMS_COMP_SMILParser::getTypeEnum(part->getContentType().toLower())
                          : element;
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

bool isSteering(QChar unit) {
    return unit.category() == QChar::Other_Control && unit != u'\n' && unit != u'\r' && unit != u'\t';
}

} // namespace

bool standsAside(const ObjectView& object) {
    return object.kind == VIEW_SOUND || object.kind == VIEW_OTHER;
}

bool isOnlyHeard(const SlideView& slide) {
    return !slide.objects.isEmpty() &&
           std::all_of(slide.objects.begin(), slide.objects.end(),
                       [](const ObjectView& object) { return object.kind == VIEW_SOUND; });
}

int SlideViews::count() const {
    return message_.presentation->getTotalSlidesNum();
}

ObjectView SlideViews::objectView(const MMS_COMP_SMILMediaObject& object) const {
    ObjectView view;
    view.part = message_.isMissing(object.getData()) ? nullptr : object.getData();
    view.kind = kindOf(object.getMediaElementType(), view.part);
    const QString location = view.part ? view.part->getContentLocation() : QString();
    view.name = printableStart(location.isEmpty() ? object.getSrc() : location);
    view.alt = object.getAlt() == object.getSrc() ? QString() : printableStart(object.getAlt());
    view.place = screen_.place(object.getRegionId().trimmed(), view.kind == VIEW_TEXT);
    return view;
}

SlideView SlideViews::at(int index) const {
    const MMS_COMP_SMILTimingContainer& slide = *message_.presentation->getSlide(index);
    const MMS_COMP_SMILRootLayout* root = message_.presentation->getRootLayout();
    SlideView view{slide.getDur(), Qt::white, Qt::black, {}};
    if (isGiven(slide.getPageColor()))
        view.page = slide.getPageColor().color;
    else if (root && isGiven(*root->getBackgroundColor()))
        view.page = root->getBackgroundColor()->color;
    if (isGiven(slide.getTextColor()))
        view.text = slide.getTextColor().color;
    else if (qGray(view.page.rgb()) < 100) // light text on a dark page
        view.text = Qt::white;
    const int count = std::min(slide.getMediaObjectCount(), MOST_OBJECTS);
    for (int i = 0; i < count; ++i)
        view.objects += objectView(*slide.getMediaObject(i));
    if (message_.reading() == READING_PHONE) // the phone draws texts above all else in their region
        std::stable_partition(view.objects.begin(), view.objects.end(),
                              [](const ObjectView& object) { return object.kind != VIEW_TEXT; });
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

QString wordsOf(const MMS_COMP_SMILMultipartBodypart& part) {
    const QArray<char>& octets = part.getBodyData();
    QString words = QString::fromUtf8(octets.data(), octets.size());
    while (words.endsWith(QChar::Null))
        words.chop(1);
    std::replace_if(words.begin(), words.end(), isSteering, u' ');
    return words;
}

QString durationLabel(int milliseconds) {
    if (milliseconds == -2)
        return QStringLiteral("no end");
    return milliseconds < 0 ? QStringLiteral("no duration") : spanOfTime(milliseconds);
}
