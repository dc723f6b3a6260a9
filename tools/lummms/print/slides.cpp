#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

namespace {

/// The kinds of media for the user, by MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE.
constexpr const char* KIND_WORDS[] = {"sound", "video", "text", "picture", "other"};

QString kindWord(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) {
    const MediaKind* kind = mediaKindOfType(type);
    return QString::fromLatin1(kind ? KIND_WORDS[kind->type] : "other");
}

QString durationWords(int milliseconds) {
    if (milliseconds == -2)
        return QStringLiteral("until the user goes on");
    return milliseconds < 0 ? QStringLiteral("no duration given") : spanOfTime(milliseconds);
}

/// When an object appears and disappears, if the presentation gives times.
QString timesOf(const MMS_COMP_SMILMediaObject& object) {
    QString times;
    if (object.getBeginTimeType() == MMS_COMP_SMIL_TIME_OFFSET)
        times += QStringLiteral(", from %1").arg(spanOfTime(object.getBeginTimeLength()));
    if (object.getEndTimeType() == MMS_COMP_SMIL_TIME_OFFSET)
        times += QStringLiteral(", until %1").arg(spanOfTime(object.getEndTimeLength()));
    return times;
}

QString contentOf(const Message& message, const MMS_COMP_SMILMediaObject& object) {
    const QString src = printable(object.getSrc());
    const MMS_COMP_SMILMultipartBodypart* part = object.getData();
    if (!part || message.isMissing(part))
        return src + QStringLiteral(" (content missing)");
    const QString location = part->getContentLocation();
    const QString name = location.isEmpty() ? src : printableStart(location);
    if (object.getMediaElementType() == MMS_COMP_SMIL_MEDIA_TEXT)
        return QStringLiteral("%1 (%2)").arg(firstWords(*part), name);
    const QString type = printableStart(part->getContentType()) + u'/' + printableStart(part->getSubType());
    return QStringLiteral("%1 (%2, %3)").arg(name, type, counted(part->getBodyData().size(), "octet"));
}

QString objectLine(const Message& message, const MMS_COMP_SMILMediaObject& object) {
    const QString region = printable(object.getRegionId());
    const QString where = region.isEmpty() ? region : QStringLiteral("in region \"%1\"").arg(region);
    return QStringLiteral("    %1 %2 %3%4\n")
        .arg(kindWord(object.getMediaElementType()).leftJustified(8), where.leftJustified(18),
             contentOf(message, object), timesOf(object));
}

QString slideBlock(const Message& message, int number, const MMS_COMP_SMILTimingContainer& slide) {
    QString text = QStringLiteral("  Slide %1, %2\n").arg(number).arg(durationWords(slide.getDur()));
    for (const MMS_COMP_SMILMediaObject* object : slide)
        text += objectLine(message, *object);
    if (slide.isBlank())
        text += QStringLiteral("    (nothing to show)\n");
    return text;
}

QString regionLine(const MMS_COMP_SMILRegion& region, QChar unit) {
    const QString fit = fitWord(region.getFit());
    const auto number = [](float measure) { return QString::number(double(measure)); };
    return QStringLiteral("  Region \"%1\": %2 x %3 at %4, %5 (%6%7)\n")
        .arg(printable(region.getId()), number(region.getWidth()), number(region.getHeight()),
             number(region.getLeft()), number(region.getTop()),
             unit == u'%' ? QStringLiteral("per cent, ") : QString(),
             fit.isEmpty() ? QStringLiteral("other fit") : fit);
}

} // namespace

QString slidesForPerson(const Message& message) {
    if (!message.smilPart)
        return QString();
    const MMS_COMP_SMILData& presentation = *message.presentation;
    const int slides = presentation.getTotalSlidesNum();
    QString text = QStringLiteral("\nPresentation: %1").arg(counted(slides, "slide"));
    const MMS_COMP_SMILRootLayout* screen = presentation.getRootLayout();
    if (screen && screen->getWidth() > 0 && screen->getHeight() > 0)
        text += QStringLiteral(", screen %1 x %2").arg(screen->getWidth()).arg(screen->getHeight());
    text += u'\n';
    const bool percent = presentation.getLayoutMeasureUnit() == MMS_COMP_SMIL_UNIT_PERCENT;
    for (int i = 0; i < presentation.getRegionCount(); ++i)
        text += regionLine(*presentation.getRegion(static_cast<unsigned int>(i)), percent ? u'%' : u' ');
    if (message.smilWarning)
        text +=
            QStringLiteral("  Note: %1\n").arg(explained(smilWarningWords, "warning", message.smilWarning));
    for (int i = 0; i < slides; ++i)
        text += slideBlock(message, i + 1, *presentation.getSlide(i));
    return text;
}
