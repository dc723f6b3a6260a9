#include "tools/lummms/draw/draw.h"

#include "tools/lummms/words.h"

#include <algorithm>

SlideRange slidesWithin(SlideRange range, int slides, int room, QStringList& notes) {
    const int last = std::min(range.to, slides);
    const int drawn = std::min(last, range.from + room - 1);
    if (last > drawn)
        notes += QStringLiteral("no room for %1: draw them with --slides %2-%3")
                     .arg(counted(last - drawn, "further slide"))
                     .arg(drawn + 1)
                     .arg(std::min(last, drawn + room));
    return {range.from, drawn};
}

QStringList notesOnPictures(int leftOut) {
    if (!leftOut)
        return {};
    return {QStringLiteral("%1 left out: together the pictures take too much time or memory")
                .arg(counted(leftOut, "picture"))};
}
