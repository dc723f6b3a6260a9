#include "platform/utility/setting.h"

#include <QByteArray>

#include <algorithm>
#include <limits>

namespace {

constexpr int USUAL_LIMIT_KB = 300; // what networks commonly let through

} // namespace

int MMS_UTIL_Setting::getMaxiumMOMMSSize(int) {
    const QByteArray text = qgetenv("LUM_MMS_MAX_SIZE_KB").trimmed();
    if (text.isEmpty() || !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return USUAL_LIMIT_KB;
    constexpr qlonglong greatest = std::numeric_limits<int>::max();
    bool fits = false; // into 64 bits
    const qlonglong number = text.toLongLong(&fits);
    const auto chosen = static_cast<int>(fits ? std::min(number, greatest) : greatest);
    return chosen > 0 ? chosen : USUAL_LIMIT_KB;
}
