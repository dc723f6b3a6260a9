#include "platform/utility/setting.h"

#include <QtGlobal>

namespace {

constexpr int USUAL_LIMIT_KB = 300; // what networks commonly let through

} // namespace

int MMS_UTIL_Setting::getMaxiumMOMMSSize(int) {
    const int chosen = qEnvironmentVariableIntValue("LUM_MMS_MAX_SIZE_KB");
    return chosen > 0 ? chosen : USUAL_LIMIT_KB;
}
