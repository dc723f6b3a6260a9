#pragma once

#include "platform/export.h"
#include "qt2/qptrlist.h"
#include "smil/model/layout.h"
#include "smil/model/slide.h"

#include <QString>

class MMS_COMP_SMILMultipart;
class QDomElement;

/// The unit of the regions' measures.
/// @ingroup presentation
enum MMS_COMP_SMIL_UNIT_TYPE_ENUM : int {
    MMS_COMP_SMIL_UNIT_PIXEL = 0,   ///< pixels
    MMS_COMP_SMIL_UNIT_PERCENT = 1, ///< per cent of the screen
};

/// One `meta` entry of a presentation.
class LUM_EXPORT MMS_COMP_SMILMeta {
public:
    /// The name; empty in a new entry.
    QString getName() const { return name_; }
    /// The content; empty in a new entry.
    QString getContent() const { return content_; }
    /// Sets the name.
    void setName(const QString& name) { name_ = name; }
    /// Sets the content.
    void setContent(const QString& content) { content_ = content; }

private:
    QString name_ = QStringLiteral("");
    QString content_ = QStringLiteral("");
};

/// A SMIL presentation: layout, meta entries and slides. It owns all three, but not the container with the
/// content: that must outlive the document, or be replaced with setMultiPart() in the document, its slides
/// and their media objects.
class LUM_EXPORT MMS_COMP_SMILData {
public:
    /// An empty presentation with the default root layout. `multipart` may be null.
    explicit MMS_COMP_SMILData(MMS_COMP_SMILMultipart* multipart);
    /// As much of `other` as copyTo() copies, with the content in `multipart`.
    MMS_COMP_SMILData(const MMS_COMP_SMILData& other, MMS_COMP_SMILMultipart* multipart);
    MMS_COMP_SMILData(const MMS_COMP_SMILData&) = delete;
    MMS_COMP_SMILData& operator=(const MMS_COMP_SMILData&) = delete;
    /// Deletes slides and meta entries without releasing body parts. The layout stays.
    void clean();

    /// The layout of this document, not a copy.
    MMS_COMP_SMILLayout* getLayout() { return &layout_; }
    /// The same for reading.
    const MMS_COMP_SMILLayout* getLayout() const { return &layout_; }
    /// The root layout, owned by the document; null after setRootLayout() failed.
    MMS_COMP_SMILRootLayout* getRootLayout() const { return layout_.getRootLayout(); }
    /// Number of regions.
    int getRegionCount() const { return layout_.getRegionCount(); }
    /// The region at `index`, owned by the document, or null when out of range.
    MMS_COMP_SMILRegion* getRegion(unsigned int index) const { return layout_.getRegion(index); }
    /// The unit of all regions' measures; pixels until a "%" was read.
    MMS_COMP_SMIL_UNIT_TYPE_ENUM getLayoutMeasureUnit() const { return measureUnit_; }
    /// Sets the unit; the measures stay as they are.
    void setLayoutMeasureUnit(MMS_COMP_SMIL_UNIT_TYPE_ENUM unit) { measureUnit_ = unit; }
    /// As MMS_COMP_SMILLayout::setRootLayout().
    MMS_COMP_SMILRootLayout* setRootLayout(int width, int height);
    /// As MMS_COMP_SMILLayout::setRootLayout() of an element.
    int setRootLayout(QDomElement* element);
    /// The size as texts: "px" is understood, an empty text becomes -1, one that is no number 0. The
    /// third text is not used.
    MMS_COMP_SMILRootLayout* setRootLayout(const QString& width, const QString& height, const QString&);
    /// As MMS_COMP_SMILLayout::appendRegion().
    void appendRegion(MMS_COMP_SMILRegion* region);
    /// As MMS_COMP_SMILLayout::appendRegion() of values.
    MMS_COMP_SMILRegion* appendRegion(float left, float top, float width, float height, const QString& fit,
                                      const QString& id);
    /// The measures as texts: "px" is understood, an empty text becomes -1, one without a leading
    /// number 0. A "%" in any of them makes per cent the unit of the whole document.
    MMS_COMP_SMILRegion* appendRegion(const QString& left, const QString& top, const QString& width,
                                      const QString& height, const QString& fit, const QString& id);
    /// The id of the standard region of texts: "text".
    static QString getTextRegionId();
    /// The id of the standard region of pictures: "image".
    static QString getImgRegionId();

    /// Number of meta entries.
    int getMetaCount() const { return metas_.count(); }
    /// The entry at `index`, owned by the document, or null when out of range.
    MMS_COMP_SMILMeta* getMeta(int index) const { return metas_.at(index); }
    /// Appends an entry; false when there is no memory.
    bool appendMeta(const QString& name, const QString& content);

    /// Appends an empty slide, owned by the document; null when there is no memory.
    MMS_COMP_SMILTimingContainer* appendSlide();
    /// Appends the slide, which the document takes over; false for null.
    bool appendSlide(MMS_COMP_SMILTimingContainer* slide);
    /// Number of slides.
    int getTotalSlidesNum() const { return slides_.count(); }
    /// The slide at `index`, counted from 0 and owned by the document, or null when out of range.
    MMS_COMP_SMILTimingContainer* getSlide(int index) const { return slides_.at(index); }
    /// Number of objects of a slide; 0 when there is no such slide.
    int getMediaObjectCount(int slideIndex) const;
    /// The object at `index` of a slide; null when there is no such slide or object.
    MMS_COMP_SMILMediaObject* getMediaObject(int slideIndex, int index) const;
    /// As the slide's insert(); false too when there is no such slide.
    bool insertMediaObject(int slideIndex, int index, MMS_COMP_SMILMediaObject* object);
    /// As the slide's remove(); false too when there is no such slide.
    bool deleteMediaObject(int slideIndex, int index);

    /// Adds a media element of a presentation that is being read to the last slide, or to a new one of
    /// `duration` milliseconds when `newSlide` asks for it or the last one has no room for the kind.
    /// 0, and `*object` is the new object (the document's own; the place may be null); 1 for an
    /// element of an unknown kind, 3 when its content is missing, -15 without memory: then nothing is
    /// added.
    int appendElementObject(QDomElement* element, MMS_COMP_SMILMultipart* multipart, bool newSlide,
                            int duration, MMS_COMP_SMILMediaObject** object);
    /// A name for new content that no object and no body part has yet, made from a file's name or path and at
    /// most 99 characters long.
    QString createUniqueSrc(const QString& src) const;
    /// Whether an object or a body part has that name, or none can have it: no valid URL, or longer than 99
    /// characters.
    bool isElemNameExist(const QString& name) const;
    /// Deletes the first object whose body part has that Content-Location or Content-ID; the part is
    /// not released.
    void deleteObjectByDataLocation(const QString& location);
    /// Removes texts without content, except those that alone keep a coloured page.
    void removeEmptyTextBeforeSend();
    /// Whether no slide has anything to show.
    bool isEmpty() const;

    /// The container, which is not owned; null when there is none.
    MMS_COMP_SMILMultipart* getMultiPart() const { return multipart_; }
    /// Sets the container of the document and of every slide; media objects keep theirs. The container is not
    /// taken over.
    void setMultiPart(MMS_COMP_SMILMultipart* multipart);
    /// Adds a copy of this document to `target`, whose content is in `multipart`. The background colour is
    /// not copied. False when content is missing there, with what was copied before; false too when the
    /// target is null or this document.
    bool copyTo(MMS_COMP_SMILData* target, MMS_COMP_SMILMultipart* multipart) const;

private:
    bool copyLayoutTo(MMS_COMP_SMILData* target) const;

    MMS_COMP_SMIL_UNIT_TYPE_ENUM measureUnit_ = MMS_COMP_SMIL_UNIT_PIXEL;
    MMS_COMP_SMILLayout layout_;
    QPtrList<MMS_COMP_SMILMeta> metas_;
    QPtrList<MMS_COMP_SMILTimingContainer> slides_;
    MMS_COMP_SMILMultipart* multipart_;
};
