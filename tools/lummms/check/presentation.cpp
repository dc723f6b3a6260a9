#include "tools/lummms/check/findings.h"

#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"
#include "util/lowered.h"

#include <QHash>
#include <QSet>
#include <QXmlStreamReader>

#include <cmath>
#include <limits>

namespace {

constexpr double UNKNOWN = std::numeric_limits<double>::quiet_NaN(); // comparisons with it are false

/// A measure in pixels: "120", "120px", or "50%" of the screen; 0 when absent.
double pixels(QStringView text, double screen) {
    text = text.trimmed();
    if (text.isEmpty())
        return 0;
    const bool isPercent = text.endsWith(u'%');
    text.chop(isPercent ? 1 : text.endsWith(u"px") ? 2 : 0);
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return !isNumber ? UNKNOWN : isPercent ? number * screen / 100 : number;
}

/// A side of the screen; unknown when absent.
double screenPixels(QStringView text) {
    const double side = pixels(text, UNKNOWN);
    return side > 0 ? side : UNKNOWN;
}

/// Whether a region extends beyond the screen in one direction.
bool reachesBeyond(QStringView start, QStringView extent, double screen) {
    constexpr double tolerance = 0.01;
    const double begin = pixels(start, screen);
    return begin < 0 || begin + pixels(extent, screen) > screen + tolerance;
}

/// Checks the text of a presentation.
class PresentationCheck {
public:
    explicit PresentationCheck(const Message& message) : message_(message) { indexParts(); }

    QList<Finding> run() {
        readText();
        for (const Region& region : regions_)
            checkRegion(region);
        findUnused();
        return findings_;
    }

private:
    struct Region {
        QXmlStreamAttributes attributes;
        qint64 line;
    };

    void warn(qint64 offset, const QString& what) { findings_ += {FINDING_WARNING, offset, what}; }

    /// The names by which the presentation can refer to a part; of several equal names the first counts.
    void indexParts() {
        for (int i = 0; i < message_.body.getPartCount(); ++i) {
            const auto& part = *partAt(i);
            const QString id = MMS_COMP_SMILMultipart::parseCid(part.getContentID().trimmed()).toLower();
            if (!id.isEmpty() && !ids_.contains(id))
                ids_.insert(id, i);
            if (const QString location = part.getContentLocation().toLower(); !locations_.contains(location))
                locations_.insert(location, i);
        }
    }

    /// The body is only read.
    MMS_COMP_SMILMultipartBodypart* partAt(int i) const {
        return const_cast<MMS_COMP_SMILMultipart&>(message_.body).getBodypartByIndex(i, false);
    }

    void readText() {
        const QArray<char>& octets = message_.smilPart->getBodyData();
        const QString text = QString::fromUtf8(octets.data(), octets.size());
        const qsizetype start = std::max<qsizetype>(text.indexOf(QLatin1String("<smil")), 0);
        lineOffset_ = text.first(start).count(u'\n');
        QXmlStreamReader xml(text.sliced(start));
        xml.setNamespaceProcessing(false); // the SMIL reader does not require declared prefixes either
        while (!xml.atEnd())
            if (xml.readNext() == QXmlStreamReader::StartElement)
                readElement(xml);
    }

    void readElement(const QXmlStreamReader& xml) {
        const QString tag = xml.qualifiedName().toString().toLower();
        const qint64 line = xml.lineNumber() + lineOffset_;
        if (tag == u"root-layout" && std::isnan(width_)) {
            width_ = screenPixels(xml.attributes().value("width"));
            height_ = screenPixels(xml.attributes().value("height"));
        } else if (tag == u"region") {
            regions_ += {xml.attributes(), line};
        } else if (mediaKindOfTag(tag)) {
            use(xml.attributes().value("src").trimmed().toString(), line);
        }
    }

    void use(const QString& src, qint64 line) {
        if (src.isEmpty() || seen_.contains(src))
            return;
        seen_.insert(src);
        const auto location = locations_.constFind(src.toLower());
        const auto id = ids_.constFind(MMS_COMP_SMILMultipart::parseCid(src).toLower());
        if (location != locations_.constEnd())
            used_.insert(*location);
        else if (id != ids_.constEnd())
            used_.insert(*id);
        else
            findings_ += {FINDING_ERROR, -1,
                          QStringLiteral("presentation, line %1: no part is \"%2\"")
                              .arg(line)
                              .arg(printableStart(src))};
    }

    void checkRegion(const Region& region) {
        const auto value = [&region](const char* name) {
            return region.attributes.value(QLatin1String(name)).toString();
        };
        if (reachesBeyond(value("left"), value("width"), width_) ||
            reachesBeyond(value("top"), value("height"), height_))
            warn(-1,
                 QStringLiteral("presentation, line %1: region \"%2\" reaches beyond the screen of %3 x %4")
                     .arg(region.line)
                     .arg(printableStart(value("id")))
                     .arg(width_)
                     .arg(height_));
    }

    /// Parts that no slide shows and that are not marked as attachments.
    void findUnused() {
        const QList<MMS_WIRE_Part> sent = message_.wire().parts();
        for (int i = 0; i < message_.body.getPartCount() && i < sent.size(); ++i)
            if (partAt(i) != message_.smilPart && !used_.contains(i) &&
                !equalLowered(sent.at(i).disposition(), u"attachment"))
                warn(sent.at(i).item().offset(), QStringLiteral("nothing refers to part %1, \"%2\"")
                                                     .arg(i + 1)
                                                     .arg(printableStart(partAt(i)->getContentLocation())));
    }

    const Message& message_;
    QHash<QString, int> ids_;
    QHash<QString, int> locations_;
    QSet<QString> seen_;
    QSet<int> used_;
    QList<Region> regions_;
    double width_ = UNKNOWN;
    double height_ = UNKNOWN;
    qint64 lineOffset_ = 0;
    QList<Finding> findings_;
};

} // namespace

QList<Finding> findingsInPresentation(const Message& message) {
    // an unreadable text is reported by problems()
    return message.smilPart && !message.smilStatus ? PresentationCheck(message).run() : QList<Finding>();
}
