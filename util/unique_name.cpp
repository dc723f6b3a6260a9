#include "util/unique_name.h"

#include <QUrl>

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

constexpr qsizetype nameLimit = 100; // the limit of phones' file systems, less some room for a directory

/// Whether a name has only letters, digits and punctuation of file names. Such a name is always a valid URL,
/// without parsing.
bool isPlain(const QString& name) {
    return std::all_of(name.begin(), name.end(), [](QChar c) {
        const char16_t u = c.unicode();
        return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') || u == '.' ||
               u == '_' || u == '-';
    });
}

} // namespace

bool isUsableName(const QString& name) {
    if (name.isEmpty() || name.size() >= nameLimit)
        return false;
    return isPlain(name) || QUrl(name).isValid();
}

QString cutBase(const QString& base, const QString& ext) {
    if (base.size() + ext.size() <= longestMadeName)
        return base;
    return base.left(std::max<qsizetype>(longestMadeName - ext.size(), 0));
}

QString dotted(const QString& ext) {
    return ext.isEmpty() ? ext : '.' + ext;
}

QString numberedName(const QString& before, const QString& after, const NameTaken& taken, int* number) {
    int fromZero = 0;
    char digits[std::numeric_limits<int>::digits10 + 1];
    QString name;
    name.reserve(before.size() + qsizetype(sizeof digits) + after.size());
    name += before;
    for (int& n = number ? *number : fromZero;; ++n) {
        name.truncate(before.size());
        name += QLatin1String(digits, std::to_chars(std::begin(digits), std::end(digits), n).ptr);
        name += after;
        if (!isUsableName(name))
            return QString();
        if (!taken(name))
            return name;
    }
}

QString uniqueName(const QString& base, const QString& ext, const QString& first, const QString& bareBase,
                   const NameTaken& taken) {
    const auto isFree = [&taken](const QString& name) { return isUsableName(name) && !taken(name); };
    if (isFree(first))
        return first;
    QString name = numberedName(base + '_', dotted(ext), taken);
    if (!name.isNull())
        return name;
    for (const QString& bare : {bareBase.left(longestMadeName), QStringLiteral("renamed")}) {
        if (isFree(bare))
            return bare;
        name = bare.isEmpty() ? QString() : numberedName(bare + '_', QString(), taken);
        if (!name.isNull())
            break;
    }
    return name;
}
