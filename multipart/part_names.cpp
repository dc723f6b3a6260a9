#include "multipart/part_names.h"

#include "multipart/multipart.h"
#include "util/mms_comp_util.h"
#include "util/unique_name.h"

#include <QUrl>

namespace {

QString bareId(const QString& reference) {
    return MMS_COMP_SMILMultipart::parseCid(reference.trimmed()).toLower();
}

} // namespace

PartNames::PartNames(const BodypartList& parts) {
    locations_.reserve(parts.count());
    for (const MMS_COMP_SMILMultipartBodypart* part : parts)
        add(*part);
}

void PartNames::add(const MMS_COMP_SMILMultipartBodypart& part) {
    const QString id = bareId(part.getContentID());
    if (!id.isEmpty()) // an empty reference finds no Content-ID
        contentIds_.insert(id);
    addLocation(part.getContentLocation());
}

bool PartNames::contains(const QString& name) const {
    return locations_.contains(name.toLower()) ||
           (!contentIds_.isEmpty() && contentIds_.contains(bareId(name)));
}

QString PartNames::uniqueLocation(const QString& name) const {
    QString location = MMS_COMP_Util::stripePath(name).remove('&');
    const QString ext = MMS_COMP_Util::getExtName(location);
    const QString bareBase = MMS_COMP_Util::getNoExtName(location);
    QString base = cutBase(bareBase, ext);
    if (!QUrl(location).isValid())
        base = QStringLiteral("renamed");
    // Without an extension the name itself comes first as it is, neither cut nor renamed; only the
    // numbered names are. Deliberately so.
    if (!ext.isEmpty())
        location = base + '.' + ext;
    return uniqueName(base, ext, location, bareBase,
                      [this](const QString& taken) { return contains(taken); });
}

QString PartNames::uniqueAttachmentLocation(const QString& extension) {
    const auto taken = [this](const QString& name) { return contains(name); };
    const auto file = [&](const QString& after) {
        return numberedName(QStringLiteral("file"), after, taken, &nextFile_[after]);
    };
    const QString name = file(extension.isEmpty() ? extension : '.' + extension);
    return name.isNull() ? file(QString()) : name;
}
