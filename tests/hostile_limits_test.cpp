// Bodies, records and names at each limit and just beyond it. (Limits of presentations: smil_reader_test.)

#include "tests/testing.h"

#include "util/lowered.h"

namespace {

/// A body of one part.
QByteArray body(const QByteArray& headers, const QByteArray& data) {
    return '\1' + entry(headers, data);
}

TEST(Limits, BodiesWithinBodies) {
    for (const int depth : {16, 17}) {
        QByteArray octets = body("\x83", "x");
        for (int i = 0; i < depth; ++i)
            octets = body("\xC8", octets);
        MMS_COMP_SMILMultipart container;
        EXPECT_EQ(decode(octets, container), depth == 16 ? CODEC_READ : CODEC_MALFORMED) << depth;
    }
}

TEST(Limits, RecordsWithinRecords) {
    for (const int depth : {16, 17}) {
        Part outer;
        Part* inner = &outer;
        for (int i = 0; i < depth; ++i) {
            auto* part = new Part;
            inner->setSubBody(part, 0);
            inner = part;
        }
        EXPECT_EQ(read(*std::make_unique<Part>(), recordOf(outer)), depth == 16) << depth;
    }
}

TEST(Limits, ContentLocation) {
    for (const int length : {1024, 1025}) {
        MMS_COMP_SMILMultipart container;
        const QByteArray name(length, 'n');
        EXPECT_EQ(decode(body("\x83\x8E" + name + '\0', "x"), container),
                  length == 1024 ? CODEC_READ : CODEC_MALFORMED);
        EXPECT_EQ(container.getPartCount(), length == 1024 ? 1 : 0);
    }
}

TEST(Limits, HeadersThatAreSent) {
    // 1024 octets: the type, the name with code and zero, and the same in a header
    constexpr int fits = (1024 - 1) / 2 - 2;
    for (const int length : {fits, fits + 1}) {
        MMS_COMP_SMILMultipart container;
        setType(*addPart(container, QString(length, 'n')), "image/jpeg");
        MMS_UTIL_MsgHeaderBase header;
        const QByteArray sent = MMS_COMP_SMILMultipartParser::assembleBody(&container, &header);
        EXPECT_EQ(sent.count(QByteArray(length, 'n') + '\0'), length == fits ? 2 : 1) << length;
    }
}

TEST(Limits, Names) {
    MMS_COMP_SMILMultipart container;
    MMS_COMP_SMILData data(&container);
    for (const int length : {99, 100}) {
        EXPECT_EQ(container.isPartExist(QString(length, 'n')), length == 100);
        EXPECT_EQ(data.isElemNameExist(QString(length, 'n')), length == 100);
    }
    for (const QString& name : {QString(5000, 'n'), "n." + QString(5000, 'x')}) {
        addPart(container, container.createUniqueLocation(name));
        EXPECT_FALSE(container.isPartExist(container.createUniqueLocation(name)));
        EXPECT_FALSE(data.isElemNameExist(data.createUniqueSrc(name)));
    }
}

TEST(Limits, IndicesAreChecked) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int greatest = std::numeric_limits<int>::max();
    MMS_COMP_SMILMultipart container;
    container.appendBodypart(new Part);
    MMS_COMP_SMILData data(&container);
    data.appendSlide();
    for (const int index : {least, -1, 1, greatest}) {
        const auto number = static_cast<unsigned int>(index);
        EXPECT_TRUE(!container.getAttachment(index) && !container.getBodypartByIndex(index, true)) << index;
        EXPECT_EQ(container.deletePart(index), MMS_COMP_SMILMultipart::ERR_NO_PART);
        EXPECT_FALSE(container.getBodypartByIndex(0, false)->getSubBody(number) || data.getRegion(number));
        EXPECT_FALSE(data.getSlide(index) || data.getMeta(index) || data.getMediaObject(0, index));
        EXPECT_FALSE(data.deleteMediaObject(0, index));
    }
}

// A look-up compares names only up to their first difference.
TEST(Limits, LettersAreComparedAsInLowerCase) {
    const char32_t letters[] = {U'i',   U'I', 0x130,   0x307,   0xC9, 0xE9, U'[', U'{', // one bit apart
                                0x212A, U'k', 0x10400, 0x10428, 0};
    constexpr size_t count = std::size(letters);
    const auto text = [&letters](size_t number) {
        QString made;
        for (; number; number /= count)
            made += QString::fromUcs4(&letters[number % count], 1);
        return made;
    };
    for (size_t a = 0; a < count * count; ++a)
        for (size_t b = 0; b < count * count * count; ++b)
            ASSERT_EQ(equalLowered(text(a), text(b)), text(a).toLower() == text(b).toLower())
                << a << " and " << b;
}

} // namespace
