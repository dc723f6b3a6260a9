#pragma once

#include "smil/model/layout.h"
#include "smil/model/media_object.h"

#include <QLatin1String>
#include <QStringView>

#include <algorithm>
#include <iterator>

/// A media element kind: its tag, and the top-level MIME word of a body part made for it.
struct MediaKind {
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type;
    QLatin1String tag;
    QLatin1String contentType;
};

/// All kinds that have a tag; everything else is MMS_COMP_SMIL_MEDIA_OTHER.
inline constexpr MediaKind mediaKinds[] = {
    {MMS_COMP_SMIL_MEDIA_AUDIO, QLatin1String("audio"), QLatin1String("audio")},
    {MMS_COMP_SMIL_MEDIA_VIDEO, QLatin1String("video"), QLatin1String("video")},
    {MMS_COMP_SMIL_MEDIA_TEXT, QLatin1String("text"), QLatin1String("text")},
    {MMS_COMP_SMIL_MEDIA_IMG, QLatin1String("img"), QLatin1String("image")},
    {MMS_COMP_SMIL_MEDIA_REF, QLatin1String("ref"), QLatin1String("application")},
};

/// The kind with exactly this tag, or null.
inline const MediaKind* mediaKindOfTag(QStringView tag) {
    const auto* kind = std::find_if(std::begin(mediaKinds), std::end(mediaKinds),
                                    [tag](const auto& k) { return tag == k.tag; });
    return kind == std::end(mediaKinds) ? nullptr : kind;
}

/// The kind of this type, or null for MMS_COMP_SMIL_MEDIA_OTHER and values that are no type.
inline const MediaKind* mediaKindOfType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) {
    const auto* kind = std::find_if(std::begin(mediaKinds), std::end(mediaKinds),
                                    [type](const auto& k) { return type == k.type; });
    return kind == std::end(mediaKinds) ? nullptr : kind;
}

/// The words of MMS_COMP_SMIL_REGION_FIT, in the order of its numbers; MMS_COMP_SMIL_FIT_OTHER has none.
inline constexpr QLatin1String regionFitWords[] = {
    QLatin1String("hidden"), QLatin1String("fill"),  QLatin1String("meet"),
    QLatin1String("scroll"), QLatin1String("slice"),
};

/// The word of a fit; empty for MMS_COMP_SMIL_FIT_OTHER and numbers that are no fit.
inline QLatin1String fitWord(int fit) {
    return fit >= 0 && fit < MMS_COMP_SMIL_FIT_OTHER ? regionFitWords[fit] : QLatin1String();
}

/// The words of MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE, in the order of its numbers;
/// MMS_COMP_SMIL_PARAM_OTHER has none.
inline constexpr QLatin1String paramTypeWords[] = {
    QLatin1String("data"),
    QLatin1String("ref"),
    QLatin1String("object"),
};

/// The index of exactly this word in a table; one past the last for any other text.
template <size_t count>
int indexOfWord(const QLatin1String (&words)[count], QStringView text) {
    const auto* word = std::find_if(words, words + count, [text](QLatin1String w) { return text == w; });
    return static_cast<int>(word - words);
}
