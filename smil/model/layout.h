#pragma once

#include "platform/export.h"
#include "qt2/qptrlist.h"
#include "util/color.h"

#include <QString>

#include <memory>
#include <unordered_set>

class MMS_COMP_SMILLayout;
class QDomElement;

/// How content fits into its region: the `fit` attribute.
/// @ingroup presentation
enum MMS_COMP_SMIL_REGION_FIT : int {
    MMS_COMP_SMIL_FIT_HIDDEN = 0, ///< "hidden"
    MMS_COMP_SMIL_FIT_FILL = 1,   ///< "fill"
    MMS_COMP_SMIL_FIT_MEET = 2,   ///< "meet"
    MMS_COMP_SMIL_FIT_SCROLL = 3, ///< "scroll"
    MMS_COMP_SMIL_FIT_SLICE = 4,  ///< "slice"
    MMS_COMP_SMIL_FIT_OTHER = 5,  ///< any other text, or none
};

/// A rectangle of the screen that shows media objects. Its measures are pixels or per cent: see
/// MMS_COMP_SMILData::getLayoutMeasureUnit(). A new region has the id "default", is 120 wide and 160 high at
/// 0, 0, and hides what does not fit.
class LUM_EXPORT MMS_COMP_SMILRegion {
public:
    MMS_COMP_SMILRegion() = default;
    /// Copies all values; the copy is in no layout.
    MMS_COMP_SMILRegion(const MMS_COMP_SMILRegion& other);
    MMS_COMP_SMILRegion& operator=(const MMS_COMP_SMILRegion&) = delete;

    /// The height.
    float getHeight() const { return height_; }
    /// The width.
    float getWidth() const { return width_; }
    /// The distance from the upper edge of the screen.
    float getTop() const { return top_; }
    /// The distance from the left edge of the screen.
    float getLeft() const { return left_; }
    /// Left plus width.
    float getRight() const { return left_ + width_; }
    /// Top plus height.
    float getBottom() const { return top_ + height_; }
    /// The id that the `region` attribute of a media object refers to.
    QString getId() const { return id_; }
    /// How content fits in.
    MMS_COMP_SMIL_REGION_FIT getFit() const { return fit_; }

    /// Sets the height. Like the other setters it accepts any value and returns true.
    bool setHeight(float height);
    /// Sets the width.
    bool setWidth(float width);
    /// Sets the distance from the upper edge.
    bool setTop(float top);
    /// Sets the distance from the left edge.
    bool setLeft(float left);
    /// Sets the id.
    bool setId(const QString& id);
    /// Sets how content fits in.
    void setFit(MMS_COMP_SMIL_REGION_FIT fit);
    /// Sets the fit by its word, compared exactly ("Fill" is not "fill"). Always true.
    bool setFit(const QString& word);

private:
    friend class MMS_COMP_SMILLayout;
    void changed();

    float height_ = 160.0f;
    float width_ = 120.0f;
    float top_ = 0.0f;
    float left_ = 0.0f;
    QString id_ = QStringLiteral("default");
    MMS_COMP_SMIL_REGION_FIT fit_ = MMS_COMP_SMIL_FIT_HIDDEN;
    MMS_COMP_SMILLayout* layout_ = nullptr; // whose list owns the region
};

/// Size and background of the whole screen; a new one is 120 by 160 without a colour.
class LUM_EXPORT MMS_COMP_SMILRootLayout {
public:
    /// Pixels; negative when the presentation did not say.
    int getWidth() const { return width_; }
    /// Pixels; negative when the presentation did not say.
    int getHeight() const { return height_; }
    /// The colour of this root layout, not a copy.
    MMS_COMP_COLOR* getBackgroundColor() { return &backgroundColor_; }
    /// The same for reading.
    const MMS_COMP_COLOR* getBackgroundColor() const { return &backgroundColor_; }

    /// Accepts any value, negative ones too; always true.
    bool setWidth(int width);
    /// As setWidth().
    bool setHeight(int height);
    /// Sets the colour from a `background-color` text; false when it is unreadable (kind 3).
    bool setBackgroundColor(const QString& text);

private:
    int width_ = 120;
    int height_ = 160;
    MMS_COMP_COLOR backgroundColor_;
};

/// The layout of a presentation: root layout and regions. It owns both. Regions are never removed, and none
/// is added that has the same six values as another.
class LUM_EXPORT MMS_COMP_SMILLayout {
public:
    MMS_COMP_SMILLayout();
    MMS_COMP_SMILLayout(const MMS_COMP_SMILLayout&) = delete;
    MMS_COMP_SMILLayout& operator=(const MMS_COMP_SMILLayout&) = delete;

    /// The root layout, owned by the layout; null after setRootLayout() failed.
    MMS_COMP_SMILRootLayout* getRootLayout() const { return rootLayout_.get(); }
    /// Number of regions.
    int getRegionCount() const { return regions_.count(); }
    /// The region at `index`, owned by the layout, or null when out of range.
    MMS_COMP_SMILRegion* getRegion(unsigned int index) const;
    /// The regions in the order in which they were appended.
    const QPtrList<MMS_COMP_SMILRegion>& getRegionList() const { return regions_; }

    /// Appends the region and takes it over. A region that is null, already in a layout, or equal to one of
    /// this layout is ignored and stays with the caller.
    void appendRegion(MMS_COMP_SMILRegion* region);
    /// The region with these values (`fit` is its word), appended if there was none. The layout owns
    /// it. Null when there is no memory.
    MMS_COMP_SMILRegion* appendRegion(float left, float top, float width, float height, const QString& fit,
                                      const QString& id);
    /// Whether a region of the layout has the same six values; numbers are compared exactly. `found` is set
    /// to the first such region, or null; it is left unchanged when `region` is null.
    bool isRegionExist(MMS_COMP_SMILRegion* region, MMS_COMP_SMILRegion** found = nullptr) const;

    /// Sets the size of the root layout, which is made if there is none; null when it cannot be.
    MMS_COMP_SMILRootLayout* setRootLayout(int width, int height);
    /// Sets size and background from a `root-layout` element. An absent size becomes -1, one that is no
    /// number 0; "px" is understood. 0, or -7 without an element or memory.
    int setRootLayout(QDomElement* element);

private:
    friend class MMS_COMP_SMILRegion;
    struct SameValues {
        size_t operator()(const MMS_COMP_SMILRegion* region) const;
        bool operator()(const MMS_COMP_SMILRegion* a, const MMS_COMP_SMILRegion* b) const;
    };
    void forgetIndex() const;

    std::unique_ptr<MMS_COMP_SMILRootLayout> rootLayout_;
    QPtrList<MMS_COMP_SMILRegion> regions_;
    // The first `indexed_` regions by value, so that looking for an equal one does not walk them
    // all. A region that is changed empties the index.
    mutable std::unordered_set<MMS_COMP_SMILRegion*, SameValues, SameValues> index_;
    mutable int indexed_ = 0;
};
