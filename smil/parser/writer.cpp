#include "smil/model/presentation.h"
#include "smil/model/words.h"
#include "smil/parser/smil_parser.h"

#include <QStringView>

namespace {

constexpr int DURATION_INDEFINITE = -2;
constexpr int AT_END = -1;
constexpr int MEASURE_DIGITS = 6;

// Estimated characters of a presentation without slides, and of a slide of two objects.
constexpr qsizetype FRAME_SIZE = 512;
constexpr qsizetype SLIDE_SIZE = 256;

/// Appends texts and numbers to one text, without escaping.
class Output {
public:
    explicit Output(qsizetype expectedSize) { text_.reserve(expectedSize); }
    QString text() const { return text_; }

    Output& operator<<(QStringView fragment) {
        text_.append(fragment);
        return *this;
    }
    Output& operator<<(QLatin1StringView word) {
        text_.append(word);
        return *this;
    }
    Output& operator<<(int number) {
        text_.append(QString::number(number));
        return *this;
    }
    Output& operator<<(float measure) {
        text_.append(QString::number(static_cast<double>(measure), 'g', MEASURE_DIGITS));
        return *this;
    }

private:
    QString text_;
};

void writeRootLayout(Output& out, const MMS_COMP_SMILRootLayout& layout) {
    out << u"<root-layout height=\"" << layout.getHeight() << u"\" width=\"" << layout.getWidth();
    // With a colour the width's closing quote is missing. Deliberate: phones write and expect it so.
    const MMS_COMP_COLOR& background = *layout.getBackgroundColor();
    if (background.kind == MMS_COMP_COLOR_NAMED || background.kind == MMS_COMP_COLOR_NUMERIC)
        out << u" background-color=\"" << background.color.name(QColor::HexRgb);
    out << u"\" />\n";
}

void writeRegion(Output& out, const MMS_COMP_SMILRegion& region, QStringView unit) {
    out << u"<region ";
    if (const QString id = region.getId(); !id.isEmpty())
        out << u"id=\"" << id << u"\"";
    // The doubled blanks matter: parse() finds duplicates of standard regions by this exact text.
    if (!(region.getHeight() < 0.0F))
        out << u"  height=\"" << region.getHeight() << unit;
    if (!(region.getWidth() < 0.0F))
        out << u"  width=\"" << region.getWidth() << unit;
    out << u" left=\"" << region.getLeft() << unit << u" top=\"" << region.getTop() << unit;
    if (const QLatin1String word = fitWord(region.getFit()); !word.isEmpty())
        out << u" fit=\"" << word << u"\"";
    out << u" />\n";
}

void writeHead(Output& out, const MMS_COMP_SMILData& data) {
    out << u"<head>\n";
    for (int i = 0; i < data.getMetaCount(); ++i) {
        const MMS_COMP_SMILMeta& meta = *data.getMeta(i);
        out << u"<meta name=\"" << meta.getName() << u"\" content=\"" << meta.getContent() << u"\" />\n";
    }
    out << u"<layout> \n";
    if (const MMS_COMP_SMILRootLayout* rootLayout = data.getRootLayout())
        writeRootLayout(out, *rootLayout);
    const QStringView unit = data.getLayoutMeasureUnit() == MMS_COMP_SMIL_UNIT_PIXEL ? u"\"" : u"%\"";
    for (int i = 0; i < data.getRegionCount(); ++i)
        writeRegion(out, *data.getRegion(static_cast<unsigned int>(i)), unit);
    out << u"</layout> \n</head>\n";
}

/// Writes a begin or end time as attribute `name`; nothing if it is unset or was unreadable.
void writeTime(Output& out, QStringView name, const MMS_COMP_SMIL_TIME& time) {
    if (time.type == MMS_COMP_SMIL_TIME_OFFSET) {
        out << u" " << name << u"=\"" << time.value << u"ms\"";
    } else if (time.type == MMS_COMP_SMIL_TIME_EVENT) {
        out << u" " << name << u"=\"id(" << time.id.trimmed();
        if (time.value == AT_END)
            out << u")(end)\"";
        else if (time.value > 0)
            out << u")(" << time.value << u"ms)\"";
        else
            out << u")(begin)\"";
    }
}

void writeParam(Output& out, const MMS_COMP_SMILMediaObjectParam& param) {
    const QString value = param.getValue();
    const QString refValueType = param.getRefValueType();
    bool open = false;
    const auto attribute = [&out, &open](QStringView fragment) -> Output& {
        out << (open ? u" " : u"<param ") << fragment;
        open = true;
        return out;
    };
    // The name is written only with a value.
    if (!value.isEmpty())
        attribute(u"name=\"") << param.getName() << u"\" value=\"" << value << u"\"";
    if (param.getValueType() == MMS_COMP_SMIL_PARAM_REF)
        attribute(u"valuetype=\"ref\"");
    else if (param.getValueType() == MMS_COMP_SMIL_PARAM_OBJECT)
        attribute(u"valuetype=\"object\"");
    if (!refValueType.isEmpty())
        attribute(u"type=\"") << refValueType << u"\"";
    if (open)
        out << u" />\n";
}

/// Writes an object as opening and closing tag, even when nothing is between them.
void writeObject(Output& out, const MMS_COMP_SMILMediaObject& object, const MediaKind& kind) {
    const QString src = object.getSrc();
    const QString alt = object.getAlt();
    const QString region = object.getRegionId();
    out << u"<" << kind.tag;
    if (!src.isEmpty())
        out << u" src=\"" << src << u"\"";
    if (!alt.isEmpty())
        out << u" alt=\"" << alt << u"\"";
    // Audio has no region. None is written for a video either, deliberately: phones expect that.
    const bool placed = kind.type != MMS_COMP_SMIL_MEDIA_AUDIO && kind.type != MMS_COMP_SMIL_MEDIA_VIDEO;
    if (placed && !QStringView(region).trimmed().isEmpty())
        out << u" region=\"" << region << u"\"";
    writeTime(out, u"begin", *object.getBegin());
    writeTime(out, u"end", *object.getEnd());
    out << u" >\n";
    for (int i = 0; i < object.getParamCount(); ++i)
        writeParam(out, *object.getParam(i));
    out << u"</" << kind.tag << u">\n";
}

void writeSlide(Output& out, const MMS_COMP_SMILTimingContainer& slide) {
    if (slide.getDur() == DURATION_INDEFINITE)
        out << u"<par dur=\"indefinite\">\n";
    else if (slide.getDur() < 0)
        out << u"<par>\n";
    else
        out << u"<par dur=\"" << slide.getDur() << u"ms\">\n";
    for (const MMS_COMP_SMILMediaObject* object : slide) {
        if (const MediaKind* kind = mediaKindOfType(object->getMediaElementType()))
            writeObject(out, *object, *kind);
        else if (object->getMediaElementType() != MMS_COMP_SMIL_MEDIA_OTHER)
            break; // a value outside the enumeration ends the slide
    }
    out << u"</par>\n";
}

} // namespace

QString MMS_COMP_SMILParser::convertToSMILLang(MMS_COMP_SMILData* data) {
    if (!data)
        return QStringLiteral("");
    Output out(FRAME_SIZE + SLIDE_SIZE * data->getTotalSlidesNum());
    out << u"<smil>\n";
    writeHead(out, *data);
    out << u"<body>\n";
    for (int i = 0; i < data->getTotalSlidesNum(); ++i)
        writeSlide(out, *data->getSlide(i));
    out << u"</body>\n</smil>\n";
    return out.text();
}
