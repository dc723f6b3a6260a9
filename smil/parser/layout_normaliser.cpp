#include "smil/model/presentation.h"
#include "smil/parser/smil_parser.h"

#include <cfloat>

namespace {

static_assert(FLT_EVAL_METHOD == 0, "regions are compared in single precision");

constexpr int SCREEN_WIDTH = 120;
constexpr int SCREEN_HEIGHT = 160;

/// A standard region of the phone. Each has the size of the screen; "image" is below "text".
struct StandardRegion {
    float left, top, width, height;
    QString id;
};

StandardRegion textRegion() {
    return {0.0F, 0.0F, SCREEN_WIDTH, SCREEN_HEIGHT, MMS_COMP_SMILData::getTextRegionId()};
}

StandardRegion imageRegion() {
    return {0.0F, SCREEN_HEIGHT, SCREEN_WIDTH, SCREEN_HEIGHT, MMS_COMP_SMILData::getImgRegionId()};
}

void append(MMS_COMP_SMILData& data, const StandardRegion& region) {
    data.appendRegion(region.left, region.top, region.width, region.height, QStringLiteral("hidden"),
                      region.id);
}

/// Renames a region and the references to it. Deliberately one region after the other: if a new name is
/// another region's old one, their references merge, and a layout of "image" above "text" ends with all
/// objects in "image".
void relabel(MMS_COMP_SMILData& data, MMS_COMP_SMILRegion& region, const QString& id) {
    MMS_COMP_SMILParser::updateObjectRegionId(&data, region.getId(), id);
    region.setId(id);
}

void place(MMS_COMP_SMILData& data, MMS_COMP_SMILRegion& region, const StandardRegion& standard) {
    region.setLeft(standard.left);
    region.setWidth(standard.width);
    region.setTop(standard.top);
    region.setHeight(standard.height);
    relabel(data, region, standard.id);
}

/// Whether `start` is at or behind the other region's end, within 0.01. Sums are in single precision and the
/// comparison in double, as on phones.
bool beginsBehind(float start, float otherStart, float otherExtent) {
    const float otherEnd = otherStart + otherExtent;
    const float gap = start - otherEnd;
    return static_cast<double>(gap) >= -0.01;
}

bool isRightOf(const MMS_COMP_SMILRegion& region, const MMS_COMP_SMILRegion& other) {
    return beginsBehind(region.getLeft(), other.getLeft(), other.getWidth());
}

bool isBelow(const MMS_COMP_SMILRegion& region, const MMS_COMP_SMILRegion& other) {
    return beginsBehind(region.getTop(), other.getTop(), other.getHeight());
}

void normaliseTwo(MMS_COMP_SMILData& data, MMS_COMP_SMILRegion& first, MMS_COMP_SMILRegion& second) {
    // The second region becomes "text" only if it is left of the first. Being above it does not count,
    // deliberately: such regions, and overlapping ones, keep their order.
    const bool inOrder = isRightOf(second, first) || isBelow(second, first) || !isRightOf(first, second);
    place(data, inOrder ? first : second, textRegion());
    place(data, inOrder ? second : first, imageRegion());
}

bool isNamedLike(const MMS_COMP_SMILRegion& region, QLatin1StringView one, QLatin1StringView other) {
    const QString id = region.getId();
    return id.contains(one, Qt::CaseInsensitive) || id.contains(other, Qt::CaseInsensitive);
}

/// The index of the first region other than `except` whose id contains one of the words; else `otherwise`.
int findNamed(const MMS_COMP_SMILData& data, QLatin1StringView one, QLatin1StringView other, int except,
              int otherwise) {
    for (int i = 0; i < data.getRegionCount(); ++i)
        if (i != except && isNamedLike(*data.getRegion(static_cast<unsigned int>(i)), one, other))
            return i;
    return otherwise;
}

/// In a layout of three or more regions two are renamed to the standard names, and none is moved.
void normaliseMany(MMS_COMP_SMILData& data) {
    const auto region = [&data](int index) -> MMS_COMP_SMILRegion& {
        return *data.getRegion(static_cast<unsigned int>(index));
    };
    const int text = findNamed(data, QLatin1StringView("txt"), QLatin1StringView("text"), -1, 0);
    relabel(data, region(text), MMS_COMP_SMILData::getTextRegionId());
    const int neighbour = text + 1 < data.getRegionCount() ? text + 1 : text - 1;
    const int image = findNamed(data, QLatin1StringView("img"), QLatin1StringView("image"), text, neighbour);
    relabel(data, region(image), MMS_COMP_SMILData::getImgRegionId());
}

} // namespace

void MMS_COMP_SMILParser::updateObjectRegionId(MMS_COMP_SMILData* data, const QString& oldId,
                                               const QString& newId) {
    if (!data)
        return;
    for (int slide = 0; slide < data->getTotalSlidesNum(); ++slide) {
        for (int i = 0; i < data->getMediaObjectCount(slide); ++i) {
            MMS_COMP_SMILMediaObject* object = data->getMediaObject(slide, i);
            if (object->getRegionId() == oldId)
                object->setRegionId(newId);
        }
    }
}

int MMS_COMP_SMILParser::updateToVarnelioRegion(MMS_COMP_SMILData* data) {
    if (!data)
        return 0;
    switch (data->getRegionCount()) {
    case 0:
        append(*data, textRegion());
        append(*data, imageRegion());
        break;
    case 1: {
        MMS_COMP_SMILRegion& only = *data->getRegion(0);
        only.setWidth(SCREEN_WIDTH);
        only.setHeight(SCREEN_HEIGHT);
        relabel(*data, only, MMS_COMP_SMILData::getTextRegionId());
        append(*data, imageRegion());
        break;
    }
    case 2:
        normaliseTwo(*data, *data->getRegion(0), *data->getRegion(1));
        break;
    default:
        normaliseMany(*data);
    }
    return 1;
}

void MMS_COMP_SMILParser::updateToVarnelioRootLayout(MMS_COMP_SMILData* data) {
    if (!data)
        return;
    MMS_COMP_SMILRootLayout* rootLayout = data->getRootLayout();
    if (!rootLayout) {
        data->setRootLayout(SCREEN_WIDTH, SCREEN_HEIGHT);
        return;
    }
    rootLayout->setWidth(SCREEN_WIDTH);
    rootLayout->setHeight(SCREEN_HEIGHT);
}
