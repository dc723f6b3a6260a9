#include "multipart/part_names.h"

#include "multipart/body_part.h"
#include "multipart/part_reference.h"
#include "util/lowered.h"
#include "util/mms_comp_util.h"
#include "util/unique_name.h"

#include <QUrl>

PartNames::PartNames(const BodypartList& parts, QStringView prefix) : prefix_(prefix) {
    locations_.reserve(parts.count());
    for (const MMS_COMP_SMILMultipartBodypart* part : parts)
        add(*part);
}

void PartNames::add(const MMS_COMP_SMILMultipartBodypart& part) {
    const QString reference = part.getContentID();
    const QStringView id = bareContentId(QStringView(reference).trimmed());
    if (!id.isEmpty() && startsWithLowered(id, prefix_)) // an empty reference matches no Content-ID
        contentIds_.insert(lowered(id.toString()));
    addLocation(part.getContentLocation());
}

void PartNames::addLocation(const QString& location) {
    if (startsWithLowered(location, prefix_))
        locations_.insert(lowered(location));
}

bool PartNames::contains(const QString& name) const {
    return locations_.contains(lowered(name)) ||
           (!contentIds_.isEmpty() &&
            contentIds_.contains(lowered(bareContentId(QStringView(name).trimmed()).toString())));
}

QString PartNames::uniqueLocation(const QString& name) const {
    QString location = MMS_COMP_Util::stripePath(name).remove('&');
    const QString ext = MMS_COMP_Util::getExtName(location);
    const QString bareBase = MMS_COMP_Util::getNoExtName(location);
    QString base = cutBase(bareBase, ext);
    if (!QUrl(location).isValid())
        base = QStringLiteral("renamed");
    // Without an extension the original name comes first, neither cut nor replaced; the numbered names are
    // made from `base`. Deliberate.
    if (!ext.isEmpty())
        location = base + '.' + ext;
    return uniqueName(base, ext, location, bareBase,
                      [this](const QString& taken) { return contains(taken); });
}

QString PartNames::uniqueAttachmentLocation(const QString& suffix) {
    const auto taken = [this](const QString& name) { return contains(name); };
    const auto file = [&](const QString& after) {
        int& next = nextFile_[lowered(after)];
        const QString name = numberedName(QStringLiteral("file"), after, taken, &next);
        ++next;
        return name;
    };
    const QString name = file(suffix);
    return name.isNull() ? file(QString()) : name;
}
