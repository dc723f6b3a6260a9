#include "tools/lummms/check/findings.h"

#include "codec/header_fields.h"
#include "multipart/body_part.h"
#include "tools/lummms/message.h"
#include "tools/lummms/phone_steps.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "util/lowered.h"

#include <QHash>

#include <algorithm>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

constexpr int LAST_CODE = 63;

bool isClose(qint64 a, qint64 b) {
    return std::abs(a - b) <= 2; // each reading takes the time itself
}

/// Compares the message as sent with the phone's reading.
class PhoneCheck {
public:
    explicit PhoneCheck(const Message& sent)
        : sent_(sent), phone_(READING_PHONE), steps_(phoneSteps(sent.octets())) {
        phone_.read(sent.octets());
        phone_.readPresentation();
    }

    QList<Finding> run() {
        if (phone_.result)
            add(steps_.isEmpty() ? 0 : steps_.last().begin,
                QStringLiteral("the phone gives up at %1")
                    .arg(steps_.isEmpty() ? "" : steps_.last().asWritten));
        compareFields();
        compareBodies();
        return findings_;
    }

private:
    void add(qint64 offset, const QString& what) { findings_ += {FINDING_PHONE, offset, what}; }

    void compareText(qint64 offset, const QString& what, const QString& sent, const QString& seen) {
        if (sent != seen)
            add(offset, QStringLiteral("the phone reads %1 as \"%2\", not \"%3\"")
                            .arg(what, printableStart(seen), printableStart(sent)));
    }

    /// Why the phone reads the field at `offset` differently, if phoneSteps() shows it: ": " and a sentence,
    /// or nothing.
    QString causeAt(qint64 offset) const {
        // the steps are in the order of their octets
        auto step = std::upper_bound(steps_.begin(), steps_.end(), offset,
                                     [](qint64 at, const PhoneStep& s) { return at < s.begin; });
        step = step != steps_.begin() && offset < std::prev(step)->end ? std::prev(step) : steps_.end();
        if (step == steps_.end() && !steps_.isEmpty() && !steps_.last().isRead)
            return QStringLiteral(": it gives up before");
        if (step == steps_.end() || step->begin == offset)
            return QString();
        return QStringLiteral(": %1 before it %2")
            .arg(step->asWritten,
                 QLatin1String(step->isKnown() ? "is read beyond its end" : "is unknown to it"));
    }

    /// Seconds from now; negative for a time in the past.
    qint64 expirySent() const {
        const MMS_WIRE_Item sent = sent_.wire().field(FIELD_EXPIRY);
        return sent.kind() == MMS_WIRE_Item::TIME
                   ? static_cast<qint64>(sent.number()) - QDateTime::currentSecsSinceEpoch()
                   : static_cast<qint32>(sent_.header.getExpireTime());
    }

    bool isSame(FIELD_CODE code) const {
        const MMS_UA_UAMsg& a = sent_.header;
        const MMS_UA_UAMsg& b = phone_.header;
        switch (code) {
        case FIELD_DATE:
            return true;
        case FIELD_EXPIRY:
            return isClose(expirySent(), static_cast<qint32>(b.getExpireTime()));
        case FIELD_DELIVERY_TIME:
            return isClose(a.getDeliveryTime().toSecsSinceEpoch(), b.getDeliveryTime().toSecsSinceEpoch());
        default:
            return fieldLines(sent_, code) == fieldLines(phone_, code);
        }
    }

    /// The field's first item that fits its form, or else its first one; null when it was not sent.
    MMS_WIRE_Item itemOf(int code) const {
        const MMS_WIRE_Item fitting = sent_.wire().field(code);
        if (!fitting.isNull())
            return fitting;
        for (const MMS_WIRE_Item item : sent_.wire().message())
            if (item.code() == code)
                return item;
        return fitting;
    }

    void compareField(const HeaderField& field) {
        const bool wasSent = sent_.header.fieldsPresent(presenceBit(field.code));
        const bool isSeen = phone_.header.fieldsPresent(presenceBit(field.code));
        const MMS_WIRE_Item item = itemOf(field.code);
        const qint64 offset = item.isNull() ? -1 : item.offset();
        const QString name = fieldName(field.code);
        const auto value = [&field](const Message& message) {
            return printableStart(fieldLines(message, field.code).join(QStringLiteral(", ")));
        };
        if (wasSent && !isSeen)
            add(offset, QStringLiteral("the phone does not see %1%2").arg(name, causeAt(offset)));
        else if (!wasSent && isSeen && field.code != FIELD_DATE && item.isNull())
            add(offset,
                QStringLiteral("the phone reads %1 as \"%2\", which was not sent").arg(name, value(phone_)));
        else if (!wasSent && isSeen && field.code != FIELD_DATE)
            add(offset, QStringLiteral("the phone reads %1 as \"%2\", not \"%3\"%4")
                            .arg(name, value(phone_), printableStart(item.valueText()), causeAt(offset)));
        else if (wasSent && isSeen && !isSame(field.code))
            add(offset, QStringLiteral("the phone reads %1 as \"%2\", not \"%3\"%4")
                            .arg(name, value(phone_), value(sent_), causeAt(offset)));
    }

    void compareFields() {
        for (int code = 1; code <= LAST_CODE; ++code)
            if (const HeaderField* field = headerField(code))
                compareField(*field);
        for (const MMS_WIRE_Item& item : sent_.otherFields)
            if (!headerField(item.code()))
                add(item.offset(), QStringLiteral("the phone does not know %1%2")
                                       .arg(printableStart(item.name()), causeAt(item.offset())));
    }

    void compareBodies() {
        const bool wasSent = sent_.hasBody && isMultipart(sent_.header.getContentType());
        if (wasSent && phone_.result == 0 && !phone_.hasBody)
            add(sent_.bodyOffset(), QStringLiteral("the phone sees no parts"));
        MMS_WIRE_Reader reader;
        if (!wasSent || !phone_.hasBody || !fieldBehindContentType(sent_, reader).isNull())
            return; // without the header there is no body, which is reported already
        const int parts = sent_.body.getPartCount();
        const int seen = phone_.body.getPartCount();
        if (phone_.bodyStatus && seen < parts)
            add(sent_.bodyOffset(), QStringLiteral("the phone reads %1 of %2: to it, part %3 is malformed")
                                        .arg(seen)
                                        .arg(counted(parts, "part"))
                                        .arg(seen + 1));
        else if (seen != parts)
            add(sent_.bodyOffset(),
                QStringLiteral("the phone sees %1, not %2").arg(counted(seen, "part")).arg(parts));
        compareText(sent_.bodyOffset(), "the start of the body", sent_.body.getStart(),
                    phone_.body.getStart());
        const QList<MMS_WIRE_Part> sent = sent_.wire().parts();
        for (int i = 0; i < std::min(parts, seen) && i < sent.size(); ++i)
            comparePart(QString::number(i + 1), sent.at(i), *partOf(sent_, i), *partOf(phone_, i));
        comparePresentations();
    }

    void comparePresentations() {
        const bool finds = phone_.smilPart != nullptr;
        const int slides = sent_.presentation->getTotalSlidesNum();
        const int shown = phone_.presentation->getTotalSlidesNum();
        if (finds != (sent_.smilPart != nullptr))
            add(-1, finds ? QStringLiteral("the phone takes a part for the presentation, but there is none")
                          : QStringLiteral("the phone does not find the presentation"));
        else if (shown != slides)
            add(-1, QStringLiteral("the phone shows %1, not %2").arg(counted(shown, "slide")).arg(slides));
        else
            compareSlides(slides);
    }

    using PartNumbers = QHash<const Part*, int>;

    static PartNumbers numbersOfParts(const Message& message) {
        PartNumbers numbers;
        for (int i = 0; i < message.body.getPartCount(); ++i)
            numbers.insert(partOf(message, i), i + 1);
        return numbers;
    }

    /// The references of a slide's objects, each with the number of its part.
    static QString contentsOf(const Message& message, int slide, const PartNumbers& numbers) {
        QStringList contents;
        for (const MMS_COMP_SMILMediaObject* object : *message.presentation->getSlide(slide)) {
            const int number = numbers.value(object->getData());
            contents += object->getSrc() +
                        (number ? QStringLiteral(" (part %1)").arg(number) : QStringLiteral(" (no part)"));
        }
        return contents.join(QStringLiteral(", "));
    }

    void compareSlides(int slides) {
        const PartNumbers sent = numbersOfParts(sent_), seen = numbersOfParts(phone_);
        for (int i = 0; i < slides; ++i)
            compareText(-1, QStringLiteral("slide %1").arg(i + 1), contentsOf(sent_, i, sent),
                        contentsOf(phone_, i, seen));
    }

    static const Part* partOf(const Message& message, int i) {
        return const_cast<Message&>(message).body.getBodypartByIndex(i, false);
    }

    void comparePart(const QString& number, const MMS_WIRE_Part& wire, const Part& sent, const Part& phone) {
        const qint64 offset = wire.item().offset();
        const QString ofPart = QStringLiteral(" of part ") + number;
        compareText(offset, "the type" + ofPart, sent.getMimeFormat().toLower(),
                    phone.getMimeFormat().toLower());
        compareText(offset, "the name" + ofPart, sent.getContentLocation(), phone.getContentLocation());
        compareText(offset, "the Content-ID" + ofPart, sent.getContentID(), phone.getContentID());
        if (sent.getPartFlags() != phone.getPartFlags())
            add(offset, QStringLiteral("the phone reads the request for consent%1 differently").arg(ofPart));
        if (sent.getBodyData() != phone.getBodyData())
            add(offset, QStringLiteral("the phone reads the data of part %1 differently%2")
                            .arg(number, causeOfData(wire)));
        if (sent.getSubBodyCount() != phone.getSubBodyCount())
            add(offset, QStringLiteral("the phone sees %1 in part %2, not %3")
                            .arg(counted(phone.getSubBodyCount(), "part"), number)
                            .arg(sent.getSubBodyCount()));
        const QList<MMS_WIRE_Part> inside = wire.parts();
        for (int i = 0; i < std::min(sent.getSubBodyCount(), phone.getSubBodyCount()) && i < inside.size();
             ++i)
            comparePart(QStringLiteral("%1.%2").arg(number).arg(i + 1), inside.at(i),
                        *sent.getSubBody(static_cast<unsigned int>(i)),
                        *phone.getSubBody(static_cast<unsigned int>(i)));
    }

    /// ": " and what the phone does not decode, or nothing.
    static QString causeOfData(const MMS_WIRE_Part& part) {
        const QString encoding = part.transferEncoding();
        for (const QStringView undone : {u"base64", u"quoted-printable"})
            if (equalLowered(encoding, undone))
                return QStringLiteral(": it does not decode %1").arg(undone);
        const QString charset = part.charset();
        return charset.isEmpty() ? QString()
                                 : QStringLiteral(": their charset is %1").arg(printableStart(charset));
    }

    const Message& sent_;
    Message phone_;
    const QList<PhoneStep> steps_;
    QList<Finding> findings_;
};

} // namespace

QList<Finding> findingsOfPhone(const Message& message) {
    return message.octets().isEmpty() ? QList<Finding>() : PhoneCheck(message).run();
}
