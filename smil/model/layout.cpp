#include "smil/model/layout.h"

#include "smil/model/measure.h"
#include "smil/model/words.h"
#include "util/smil_values.h"

#include <QDomElement>
#include <QHashFunctions>

#include <new>

namespace {

constexpr int ERR_NO_ROOT_LAYOUT = -7;

} // namespace

MMS_COMP_SMILRegion::MMS_COMP_SMILRegion(const MMS_COMP_SMILRegion& other)
    : height_(other.height_), width_(other.width_), top_(other.top_), left_(other.left_), id_(other.id_),
      fit_(other.fit_) {
}

bool MMS_COMP_SMILRegion::setHeight(float height) {
    changed();
    height_ = height;
    return true;
}

bool MMS_COMP_SMILRegion::setWidth(float width) {
    changed();
    width_ = width;
    return true;
}

bool MMS_COMP_SMILRegion::setTop(float top) {
    changed();
    top_ = top;
    return true;
}

bool MMS_COMP_SMILRegion::setLeft(float left) {
    changed();
    left_ = left;
    return true;
}

bool MMS_COMP_SMILRegion::setId(const QString& id) {
    changed();
    id_ = id;
    return true;
}

void MMS_COMP_SMILRegion::setFit(MMS_COMP_SMIL_REGION_FIT fit) {
    changed();
    fit_ = fit;
}

bool MMS_COMP_SMILRegion::setFit(const QString& word) {
    setFit(static_cast<MMS_COMP_SMIL_REGION_FIT>(indexOfWord(regionFitWords, word)));
    return true;
}

void MMS_COMP_SMILRegion::changed() {
    if (layout_)
        layout_->forgetIndex();
}

bool MMS_COMP_SMILRootLayout::setWidth(int width) {
    width_ = width;
    return true;
}

bool MMS_COMP_SMILRootLayout::setHeight(int height) {
    height_ = height;
    return true;
}

bool MMS_COMP_SMILRootLayout::setBackgroundColor(const QString& text) {
    readColor(text, backgroundColor_);
    return backgroundColor_.kind != MMS_COMP_COLOR_UNREADABLE;
}

MMS_COMP_SMILLayout::MMS_COMP_SMILLayout() : rootLayout_(new (std::nothrow) MMS_COMP_SMILRootLayout) {
    regions_.setAutoDelete(true);
}

MMS_COMP_SMILRegion* MMS_COMP_SMILLayout::getRegion(unsigned int index) const {
    return index < static_cast<unsigned int>(regions_.count()) ? regions_.at(static_cast<int>(index))
                                                               : nullptr;
}

void MMS_COMP_SMILLayout::appendRegion(MMS_COMP_SMILRegion* region) {
    if (!region || region->layout_ || isRegionExist(region))
        return;
    regions_.append(region);
    region->layout_ = this;
}

MMS_COMP_SMILRegion* MMS_COMP_SMILLayout::appendRegion(float left, float top, float width, float height,
                                                       const QString& fit, const QString& id) {
    std::unique_ptr<MMS_COMP_SMILRegion> region(new (std::nothrow) MMS_COMP_SMILRegion);
    if (!region || !region->setTop(top) || !region->setLeft(left) || !region->setWidth(width) ||
        !region->setHeight(height) || !region->setFit(fit) || !region->setId(id))
        return nullptr;
    MMS_COMP_SMILRegion* found = nullptr;
    if (isRegionExist(region.get(), &found))
        return found;
    appendRegion(region.get());
    return region.release();
}

bool MMS_COMP_SMILLayout::isRegionExist(MMS_COMP_SMILRegion* region, MMS_COMP_SMILRegion** found) const {
    if (!region)
        return false;
    // Setters can make regions equal: the set keeps the first of them.
    for (; indexed_ < regions_.count(); ++indexed_) {
        MMS_COMP_SMILRegion* listed = regions_.at(indexed_);
        if (SameValues()(listed, listed)) // a region with a "not a number" equals none, not even itself
            index_.insert(listed);
    }
    const auto equal = index_.find(region);
    if (found)
        *found = equal == index_.end() ? nullptr : *equal;
    return equal != index_.end();
}

MMS_COMP_SMILRootLayout* MMS_COMP_SMILLayout::setRootLayout(int width, int height) {
    if (!rootLayout_)
        rootLayout_.reset(new (std::nothrow) MMS_COMP_SMILRootLayout);
    if (rootLayout_ && !(rootLayout_->setWidth(width) && rootLayout_->setHeight(height)))
        rootLayout_.reset();
    return rootLayout_.get();
}

int MMS_COMP_SMILLayout::setRootLayout(QDomElement* element) {
    if (!element || !setRootLayout(wholeMeasure(element->attribute(QStringLiteral("width"))),
                                   wholeMeasure(element->attribute(QStringLiteral("height")))))
        return ERR_NO_ROOT_LAYOUT;
    // An unreadable colour does not make the layout invalid.
    rootLayout_->setBackgroundColor(element->attribute(QStringLiteral("background-color")));
    return 0;
}

size_t MMS_COMP_SMILLayout::SameValues::operator()(const MMS_COMP_SMILRegion* region) const {
    // seeded, so that a sender cannot choose regions whose hashes collide
    return qHashMulti(QHashSeed::globalSeed(), region->height_, region->width_, region->top_, region->left_,
                      region->id_, static_cast<int>(region->fit_));
}

bool MMS_COMP_SMILLayout::SameValues::operator()(const MMS_COMP_SMILRegion* a,
                                                 const MMS_COMP_SMILRegion* b) const {
    return a->height_ == b->height_ && a->width_ == b->width_ && a->top_ == b->top_ && a->left_ == b->left_ &&
           a->id_ == b->id_ && a->fit_ == b->fit_;
}

void MMS_COMP_SMILLayout::forgetIndex() const {
    if (indexed_ == 0)
        return; // the index is empty already: without this, each of many changes would clear it
    index_.clear();
    indexed_ = 0;
}
