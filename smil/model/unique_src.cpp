#include "multipart/multipart.h"
#include "multipart/part_names.h"
#include "smil/model/presentation.h"
#include "util/mms_comp_util.h"
#include "util/unique_name.h"

#include <QSet>
#include <QUrl>

namespace {

/// The names in use in a document and its container, gathered once for any number of look-ups.
class TakenNames {
public:
    explicit TakenNames(const MMS_COMP_SMILData& document) {
        for (int i = 0; i < document.getTotalSlidesNum(); ++i) {
            for (const MMS_COMP_SMILMediaObject* object : *document.getSlide(i)) {
                sources_.insert(object->getSrc());
                add(object->getData());
            }
        }
        // Attachments are parts that no slide uses.
        MMS_COMP_SMILMultipart* multipart = document.getMultiPart();
        for (int i = 0; multipart && i < multipart->getPartCount(); ++i)
            add(multipart->getBodypartByIndex(i, false));
    }

    bool contains(const QString& name) const { return sources_.contains(name) || partNames_.contains(name); }

private:
    void add(const MMS_COMP_SMILMultipartBodypart* part) {
        if (!part || parts_.contains(part))
            return;
        parts_.insert(part);
        partNames_.add(*part);
    }

    QSet<QString> sources_;
    QSet<const MMS_COMP_SMILMultipartBodypart*> parts_; // several objects can use the same part
    PartNames partNames_{BodypartList()};
};

QString joined(const QString& base, const QString& ext) {
    return ext.isEmpty() ? base : base + u'.' + ext;
}

} // namespace

QString MMS_COMP_SMILData::createUniqueSrc(const QString& src) const {
    QString name = MMS_COMP_Util::stripePath(src).remove(u'&');
    const QString ext = MMS_COMP_Util::getExtName(name);
    QString base = MMS_COMP_Util::getNoExtName(name);
    if (!QUrl(name).isValid()) {
        base = QStringLiteral("renamed");
        name = joined(base, ext);
    }
    const QString bareBase = base;
    base = cutBase(base, ext);
    if (base != bareBase)
        name = joined(base, ext);
    const TakenNames taken(*this);
    return uniqueName(base, ext, name, bareBase,
                      [&taken](const QString& candidate) { return taken.contains(candidate); });
}

bool MMS_COMP_SMILData::isElemNameExist(const QString& name) const {
    return !isUsableName(name) || TakenNames(*this).contains(name);
}
