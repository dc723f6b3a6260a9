#include "smil/model/presentation.h"

#include "multipart/multipart.h"
#include "smil/model/measure.h"
#include "smil/model/words.h"

#include <QDomElement>

#include <algorithm>
#include <memory>
#include <new>

namespace {

constexpr int ADDED = 0;
constexpr int UNKNOWN_KIND = 1;
constexpr int ERR_NO_MEMORY = -15;

/// Whether a page is white or has no colour: without its text it shows nothing.
bool isPlain(const MMS_COMP_COLOR& color) {
    switch (color.kind) {
    case MMS_COMP_COLOR_NONE:
    case MMS_COMP_COLOR_UNREADABLE:
        return true;
    case MMS_COMP_COLOR_NAMED:
    case MMS_COMP_COLOR_NUMERIC:
        return color.color.rgb() == qRgb(255, 255, 255);
    default:
        return false;
    }
}

} // namespace

MMS_COMP_SMILData::MMS_COMP_SMILData(MMS_COMP_SMILMultipart* multipart) : multipart_(multipart) {
    metas_.setAutoDelete(true);
    slides_.setAutoDelete(true);
}

MMS_COMP_SMILData::MMS_COMP_SMILData(const MMS_COMP_SMILData& other, MMS_COMP_SMILMultipart* multipart)
    : MMS_COMP_SMILData(multipart) {
    other.copyTo(this, multipart);
}

void MMS_COMP_SMILData::clean() {
    slides_.clear();
    metas_.clear();
}

MMS_COMP_SMILRootLayout* MMS_COMP_SMILData::setRootLayout(int width, int height) {
    return layout_.setRootLayout(width, height);
}

int MMS_COMP_SMILData::setRootLayout(QDomElement* element) {
    return layout_.setRootLayout(element);
}

MMS_COMP_SMILRootLayout* MMS_COMP_SMILData::setRootLayout(const QString& width, const QString& height,
                                                          const QString&) {
    return setRootLayout(wholeMeasure(width), wholeMeasure(height));
}

void MMS_COMP_SMILData::appendRegion(MMS_COMP_SMILRegion* region) {
    layout_.appendRegion(region);
}

MMS_COMP_SMILRegion* MMS_COMP_SMILData::appendRegion(float left, float top, float width, float height,
                                                     const QString& fit, const QString& id) {
    return layout_.appendRegion(left, top, width, height, fit, id);
}

MMS_COMP_SMILRegion* MMS_COMP_SMILData::appendRegion(const QString& left, const QString& top,
                                                     const QString& width, const QString& height,
                                                     const QString& fit, const QString& id) {
    // One unit serves the whole document: a single percentage switches it, and nothing switches it back.
    for (const QString& text : {left, top, width, height})
        if (text.contains(u'%'))
            measureUnit_ = MMS_COMP_SMIL_UNIT_PERCENT;
    return appendRegion(measure(left), measure(top), measure(width), measure(height), fit, id);
}

QString MMS_COMP_SMILData::getTextRegionId() {
    return QStringLiteral("text");
}

QString MMS_COMP_SMILData::getImgRegionId() {
    return QStringLiteral("image");
}

bool MMS_COMP_SMILData::appendMeta(const QString& name, const QString& content) {
    auto* meta = new (std::nothrow) MMS_COMP_SMILMeta;
    if (!metas_.append(meta))
        return false;
    meta->setName(name);
    meta->setContent(content);
    return true;
}

MMS_COMP_SMILTimingContainer* MMS_COMP_SMILData::appendSlide() {
    auto* slide = new (std::nothrow) MMS_COMP_SMILTimingContainer(multipart_);
    appendSlide(slide);
    return slide;
}

bool MMS_COMP_SMILData::appendSlide(MMS_COMP_SMILTimingContainer* slide) {
    return slides_.append(slide);
}

int MMS_COMP_SMILData::getMediaObjectCount(int slideIndex) const {
    const MMS_COMP_SMILTimingContainer* slide = getSlide(slideIndex);
    return slide ? slide->getMediaObjectCount() : 0;
}

MMS_COMP_SMILMediaObject* MMS_COMP_SMILData::getMediaObject(int slideIndex, int index) const {
    const MMS_COMP_SMILTimingContainer* slide = getSlide(slideIndex);
    return slide ? slide->getMediaObject(index) : nullptr;
}

bool MMS_COMP_SMILData::insertMediaObject(int slideIndex, int index, MMS_COMP_SMILMediaObject* object) {
    MMS_COMP_SMILTimingContainer* slide = getSlide(slideIndex);
    return slide && slide->insert(index, object);
}

bool MMS_COMP_SMILData::deleteMediaObject(int slideIndex, int index) {
    MMS_COMP_SMILTimingContainer* slide = getSlide(slideIndex);
    return slide && slide->remove(index);
}

int MMS_COMP_SMILData::appendElementObject(QDomElement* element, MMS_COMP_SMILMultipart* multipart,
                                           bool newSlide, int duration, MMS_COMP_SMILMediaObject** object) {
    const QString tag = element ? element->tagName().trimmed().toLower() : QString();
    if (!mediaKindOfTag(tag))
        return UNKNOWN_KIND;

    // Elements without content are skipped before the slide is searched for a free place: the search takes
    // time linear in its objects.
    std::unique_ptr<MMS_COMP_SMILMediaObject> added(new (std::nothrow) MMS_COMP_SMILMediaObject(multipart));
    if (!added)
        return ERR_NO_MEMORY;
    if (const int status = added->setObjectElem(element, multipart); status != 0)
        return status;

    MMS_COMP_SMILTimingContainer* slide = newSlide ? nullptr : slides_.last();
    if (!slide || !slide->canBeInserted(tag)) {
        slide = new (std::nothrow) MMS_COMP_SMILTimingContainer(multipart);
        if (!appendSlide(slide))
            return ERR_NO_MEMORY;
        slide->setDur(duration);
    }
    if (object)
        *object = added.get();
    slide->appendObject(added.release());
    return ADDED;
}

void MMS_COMP_SMILData::deleteObjectByDataLocation(const QString& location) {
    for (int i = 0; i < getTotalSlidesNum(); ++i) {
        for (int j = 0; j < getMediaObjectCount(i); ++j) {
            const MMS_COMP_SMILMultipartBodypart* part = getMediaObject(i, j)->getData();
            if (part && (part->getContentLocation() == location ||
                         MMS_COMP_SMILMultipart::isCidEqual(part->getContentID(), location))) {
                deleteMediaObject(i, j);
                return;
            }
        }
    }
}

void MMS_COMP_SMILData::removeEmptyTextBeforeSend() {
    for (MMS_COMP_SMILTimingContainer* slide : slides_) {
        const MMS_COMP_SMILMediaObject* text = slide->getTextElem(false);
        if (!text || (text->getData() && !text->getData()->getBodyData().isEmpty()))
            continue;
        // A coloured page shows even without text; the empty text may be the only object of its slide.
        if (isPlain(slide->getPageColor()) || slide->isImageExist() || slide->isAudioExist())
            slide->removeTextElem();
    }
}

bool MMS_COMP_SMILData::isEmpty() const {
    return std::all_of(slides_.begin(), slides_.end(),
                       [](const MMS_COMP_SMILTimingContainer* slide) { return slide->isBlank(); });
}

void MMS_COMP_SMILData::setMultiPart(MMS_COMP_SMILMultipart* multipart) {
    multipart_ = multipart;
    for (MMS_COMP_SMILTimingContainer* slide : slides_)
        slide->setMultiPart(multipart);
}

bool MMS_COMP_SMILData::copyLayoutTo(MMS_COMP_SMILData* target) const {
    target->setLayoutMeasureUnit(measureUnit_);
    // The background colour is not copied, deliberately.
    if (const MMS_COMP_SMILRootLayout* root = getRootLayout())
        target->setRootLayout(root->getWidth(), root->getHeight());
    for (const MMS_COMP_SMILRegion* region : layout_.getRegionList()) {
        std::unique_ptr<MMS_COMP_SMILRegion> copy(new (std::nothrow) MMS_COMP_SMILRegion(*region));
        if (!copy)
            return false;
        if (target->layout_.isRegionExist(copy.get()))
            continue; // appendRegion() would refuse an equal region and not take ownership
        target->appendRegion(copy.release());
    }
    return true;
}

bool MMS_COMP_SMILData::copyTo(MMS_COMP_SMILData* target, MMS_COMP_SMILMultipart* multipart) const {
    if (!target || target == this)
        return false;
    target->setMultiPart(multipart);
    if (!copyLayoutTo(target))
        return false;
    for (const MMS_COMP_SMILMeta* meta : metas_)
        if (!target->appendMeta(meta->getName(), meta->getContent()))
            return false;
    for (const MMS_COMP_SMILTimingContainer* slide : slides_) {
        std::unique_ptr<MMS_COMP_SMILTimingContainer> copy(new (std::nothrow)
                                                               MMS_COMP_SMILTimingContainer(multipart));
        if (!copy || !slide->copyTo(copy.get(), multipart))
            return false;
        target->appendSlide(copy.release());
    }
    return true;
}
