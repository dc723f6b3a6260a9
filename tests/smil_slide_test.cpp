#include "tests/testing.h"

namespace {

using Slide = MMS_COMP_SMILTimingContainer;

// Kinds as letters, in the order of their numbers: audio, video, text, image, ref, other.
const QString KINDS = "avtiro";

MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE typeOf(QChar kind) {
    return static_cast<MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE>(KINDS.indexOf(kind));
}

/// Fills a slide with objects of these kinds.
void fill(Slide& slide, const QString& kinds) {
    for (const QChar kind : kinds) {
        auto* object = new MMS_COMP_SMILMediaObject(slide.getMultiPart());
        object->setData("r", "old", typeOf(kind), "x", QByteArray("o"), slide.getMultiPart());
        slide.appendObject(object);
    }
}

/// The kinds in a slide; capitals for objects with new content.
QString kindsOf(const Slide& slide) {
    QString kinds;
    for (const MMS_COMP_SMILMediaObject* object : slide) {
        const QChar kind = KINDS.at(object->getMediaElementType());
        kinds += object->getSrc() == "new" ? kind.toUpper() : kind;
    }
    return kinds;
}

// objects there, the new one, and their order with the text above and below the image
TEST(Slide, PutsNewContentInItsPlace) {
    const QStringList rows = {
        " + i = I / I",       " + o = O / O",        "t + t = T / T",    "t + i = tI / It",
        "t + v = tV / Vt",    "t + a = tA / tA",     "i + t = Ti / iT",  "i + i = I / I",
        "i + v = V / V",      "i + r = iR / iR",     "v + t = Tv / vT",  "v + i = I / I",
        "it + t = iT / iT",   "it + i = It / It",    "it + v = Vt / Vt", "ti + t = Ti / Ti",
        "ti + i = tI / tI",   "vt + i = It / It",    "a + t = Ta / aT",  "at + i = atI / aIt",
        "ai + t = aTi / aiT", "rar + r = Rar / Rar", "iv + i = iI / iI", "tat + v = tatV / taVt"};
    expectRows(rows, [](const QString& there) {
        QStringList became;
        for (const bool below : {false, true}) {
            MMS_COMP_SMILMultipart container;
            Slide slide(&container);
            fill(slide, there.section(" + ", 0, 0));
            const auto comes = typeOf(there.back());
            EXPECT_TRUE(slide.updateData("r", "new", comes, "x", QByteArray("n"), below, &container));
            became << kindsOf(slide);
            EXPECT_EQ(container.getPartCount(), slide.getMediaObjectCount()) << qPrintable(there);
        }
        return became.join(" / ");
    });
}

// Kinds there, kinds with room, and whether there is an (I)mage, a (V)ideo, a text (B)elow the image.
TEST(Slide, KnowsWhatItHolds) {
    const QStringList tags = {"Audio", "VIDEO", "text", "IMG", "Ref", "object", "", " img"};
    const QStringList rows = {" = avtir B",   "t = avir B", "i = atr IB",  "v = atr IVB", "a = vtir B",
                              "rr = avtir B", "ti = ar I",  "itv = ar IV", "vt = ar IVB"};
    expectRows(rows, [&tags](const QString& kinds) {
        Released<Slide> slide;
        fill(slide, kinds);
        EXPECT_EQ(kindsOf(slide), kinds);
        QString known;
        for (int i = 0; i < tags.size(); ++i)
            known += slide.canBeInserted(tags[i]) ? QString(i < 5 ? KINDS[i] : u'?') : QString();
        EXPECT_EQ(slide.getPageSize(), slide.count());
        return known + (slide.isImageExist() ? " I" : " ") + (slide.isVideoExist() ? "V" : "") +
               (slide.isTextBellowImg() ? "B" : "");
    });
    MMS_COMP_SMILMultipart container;
    Slide both(&container);
    fill(both, "vti");
    EXPECT_EQ(both.getImgObjectLikeElem(false), both.getMediaObject(2)) << "though the video is first";
    delete both.getImgObjectLikeElem(true);
    delete both.getTextElem(true);
    EXPECT_EQ(kindsOf(both), "v");
    EXPECT_EQ(both.getTextElem(true), nullptr);
}

TEST(Slide, IsBlankWithoutAnythingToShow) {
    const std::tuple<const char*, QByteArray, bool> rows[] = {
        {"", "", true},    {"tt", "", true}, {"t", QByteArray("\0x", 2), true},
        {"t", "x", false}, {"a", "", false}, {"r", "", false},
        {"ti", "", false}};
    for (const auto& [kinds, content, blank] : rows) {
        Released<Slide> slide;
        fill(slide, kinds);
        for (MMS_COMP_SMILMediaObject* object : slide)
            object->getData()->setBodyData(content);
        EXPECT_EQ(slide.isBlank(), blank) << kinds;
    }
}

TEST(Slide, ReleasesTheContentOfWhatItRemoves) {
    MMS_COMP_SMILMultipart container;
    Slide slide(&container);
    fill(slide, "tiv");
    for (int i = 0; i < 3; ++i)
        slide.getMediaObject(i)->getData()->setContentLocation(QString::number(i));
    Part* image = slide.getMediaObject(1)->getData();
    image->setRefCount(2);
    slide.removeTextElem();
    EXPECT_EQ(container.getPartCount(), 2);
    slide.removeImgLikeElem();
    EXPECT_EQ(slide.count(), 0);
    ASSERT_EQ(container.getPartCount(), 1);
    EXPECT_EQ(image->getRefCount(), 1);
    fill(slide, "a");
    slide.removeBySrc("OLD");
    EXPECT_EQ(container.getPartCount(), 2);
    slide.removeBySrc("old");
    EXPECT_EQ(container.getPartCount() + slide.count(), 1);
    fill(slide, "t");
    EXPECT_TRUE(slide.remove(0));
    EXPECT_EQ(container.getPartCount(), 2) << "this one does not release";
    slide.setDur(1);
    slide.clear();
    EXPECT_EQ(slide.getDur(), 5000);
    fill(slide, "i");
    container.clear();
    EXPECT_TRUE(slide.updateData("r", "new", typeOf('i'), "x", QByteArray("n"), true, &container));
    EXPECT_EQ(container.getPartCount(), 1) << "a new part for one that was deleted";
}

TEST(Slide, RecordKeepsDurationAndObjects) {
    Released<Slide> slide, back;
    EXPECT_EQ(recordOf(slide), octets("00001388 00000000"));
    fill(slide, "it");
    slide.setDur(-1);
    slide.setTextSize("big");
    const QByteArray record = recordOf(slide);
    EXPECT_TRUE(record.startsWith(octets("FFFFFFFF 00000002 00000003")));
    ASSERT_TRUE(read(back, record));
    EXPECT_EQ(recordOf(back), record);
    EXPECT_EQ(back.getTextSize(), "");
    EXPECT_EQ(back.getPageColor().kind, MMS_COMP_COLOR_UNREADABLE);
    ASSERT_TRUE(read(back, record));
    EXPECT_EQ(kindsOf(back), "itit") << "what was there stays";
    for (qsizetype length = 0; length < record.size(); ++length) {
        Released<Slide> cut;
        EXPECT_FALSE(readWhole(cut, record.left(length))) << length;
        EXPECT_LE(cut.count(), 2) << length;
    }
    EXPECT_FALSE(readWhole(back, octets("00000000 7FFFFFFF"))); // a count of objects without any
    EXPECT_LE(back.count(), 5);
}

TEST(Slide, PageSizeNeverOverflows) {
    Slide slide(nullptr);
    Part part;
    part.setBodyData(QByteArray(1 << 20, 'x'));
    for (int i = 0; i < 3000; ++i) {
        auto* object = new MMS_COMP_SMILMediaObject(nullptr);
        object->setData(&part);
        slide.appendObject(object);
    }
    EXPECT_EQ(slide.getPageSize(), INT_MAX);
}

} // namespace
