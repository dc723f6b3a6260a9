#include "tests/testing.h"

#include <QDomDocument>

namespace {

int append(MMS_COMP_SMILData& data, const QString& tag, const QString& src, bool newSlide = false) {
    QDomDocument document;
    QDomElement element = document.createElement("x");
    element.setTagName(tag); // an unknown tag too
    element.setAttribute("src", src);
    return data.appendElementObject(&element, data.getMultiPart(), newSlide, 3000, nullptr);
}

/// The sources of a document's objects, slides separated by bars.
QString sourcesOf(const MMS_COMP_SMILData& data) {
    QStringList slides;
    for (int i = 0; i < data.getTotalSlidesNum(); ++i) {
        QString sources;
        for (int j = 0; j < data.getMediaObjectCount(i); ++j)
            sources += data.getMediaObject(i, j)->getSrc();
        slides << sources;
    }
    return slides.join('|');
}

// Elements, with "+" those in a new slide, and their distribution to slides by index.
TEST(Presentation, SpreadsElementsOverSlides) {
    const QStringList rows = {"img,img = 0|1", "text,video,audio,ref,ref = 01234",
                              "img,video,text,text = 0|12|3", "+ref,+ref,ref, IMG  = 0|123",
                              "audio,ref,audio,ref,+text = 01|23|4"};
    expectRows(rows, [](const QString& elements) {
        MMS_COMP_SMILMultipart container;
        MMS_COMP_SMILData data(&container);
        const QStringList tags = elements.split(',');
        for (int i = 0; i < tags.size(); ++i) {
            const bool newSlide = tags[i].startsWith('+');
            addPart(container, QString::number(i));
            EXPECT_EQ(append(data, tags[i].mid(newSlide), QString::number(i), newSlide), 0);
        }
        EXPECT_EQ(data.getSlide(0)->getDur(), 3000);
        return sourcesOf(data);
    });
}

TEST(Presentation, RefusesWhatItCannotShow) {
    MMS_COMP_SMILMultipart container;
    MMS_COMP_SMILData data(&container);
    EXPECT_EQ(append(data, "animation", "a"), 1);
    EXPECT_EQ(append(data, "img", "a", true), 3);
    EXPECT_EQ(data.appendElementObject(nullptr, &container, true, 0, nullptr), 1);
    EXPECT_EQ(data.getTotalSlidesNum() + data.getMediaObjectCount(-1), 0);
    EXPECT_FALSE(data.insertMediaObject(0, 0, nullptr) || data.deleteMediaObject(0, 0));
}

TEST(Presentation, FindsAFreeName) {
    const QString base95(95, 'b');
    const QString rows =
        "dir\\a&b.gif = ab.gif, used.jpg = used_0.jpg, id = id_0, LOC.jpg = LOC_0.jpg, "
        "attached.x = attached_0.x, series.x = series_2.x, 1:2.gif = renamed.gif,  = renamed, x.: = x, " +
        base95 + ".jpg = " + base95.left(85) + ".jpg, " + base95 + " = " + base95.left(88);
    MMS_COMP_SMILMultipart container, elsewhere;
    MMS_COMP_SMILData data(&container);
    for (const char* src : {"used.jpg", "series.x", "series_0.x", "series_1.x", "x.:"}) {
        auto* object = new MMS_COMP_SMILMediaObject(nullptr);
        object->setSrc(src);
        data.appendSlide()->appendObject(object);
    }
    data.getMediaObject(0, 0)->setData(addPart(elsewhere, "Loc.JPG"));
    data.getMediaObject(0, 0)->getData()->setContentID("<ID>");
    addPart(container, "ATTACHED.x");
    expectRows(rows.split(", "), [&data](const QString& src) {
        EXPECT_FALSE(data.isElemNameExist(data.createUniqueSrc(src)));
        return data.createUniqueSrc(src);
    });
    EXPECT_TRUE(data.isElemNameExist("cid:id"));
    EXPECT_FALSE(data.isElemNameExist("USED.jpg")) << "a src is compared exactly";
}

TEST(Presentation, DeletesTheFirstObjectWithThatContent) {
    MMS_COMP_SMILMultipart container;
    addPart(container, "a")->setContentID("<x>");
    Part* second = addPart(container, "A");
    MMS_COMP_SMILData data(&container);
    for (const char* src : {"a", "A", "a", "x"})
        append(data, "ref", src, true);
    data.getMediaObject(1, 0)->setData(second);
    data.deleteObjectByDataLocation("A");
    EXPECT_EQ(sourcesOf(data), "a||a|x");
    data.deleteObjectByDataLocation("cid:X");
    EXPECT_EQ(sourcesOf(data), "||a|x");
    EXPECT_EQ(container.getPartCount(), 2) << "the content is not released";
    container.clear();
    data.deleteObjectByDataLocation("a");
    EXPECT_EQ(sourcesOf(data), "||a|x");
}

TEST(Presentation, DropsEmptyTextsThatNeedNotBeSent) {
    // colour of the page, other objects of the slide, content of the text, and whether the text is removed
    const std::tuple<int, const char*, const char*, const char*, bool> rows[] = {
        {MMS_COMP_COLOR_NONE, "", "", "", true},
        {MMS_COMP_COLOR_NONE, "", "img", "x", false},
        {MMS_COMP_COLOR_UNREADABLE, "red", "ref", "deleted", true},
        {MMS_COMP_COLOR_NAMED, "white", "", "", true},
        {MMS_COMP_COLOR_NUMERIC, "white", "ref", "", true},
        {MMS_COMP_COLOR_NAMED, "", "", "", false},
        {MMS_COMP_COLOR_NAMED, "red", "ref", "", false},
        {MMS_COMP_COLOR_NUMERIC, "#fffffe", "", "deleted", false},
        {MMS_COMP_COLOR_NAMED, "red", "img", "", true},
        {MMS_COMP_COLOR_NAMED, "red", "audio", "", true},
    };
    for (const auto& [kind, color, companion, content, dropped] : rows) {
        MMS_COMP_SMILMultipart container;
        Part* part = addPart(container, "t");
        part->setBodyData(QByteArray(content));
        addPart(container, "c");
        MMS_COMP_SMILData data(&container);
        append(data, "text", "t");
        append(data, companion, "c");
        data.getSlide(0)->setPageColor({kind, "", QColor(color)});
        if (*content == 'd')
            delete part;
        data.removeEmptyTextBeforeSend();
        EXPECT_EQ(!data.getSlide(0)->getTextElem(), dropped) << kind << color << companion << content;
        EXPECT_EQ(container.getPartCount(), dropped || *content == 'd' ? 1 : 2);
    }
}

TEST(Presentation, CopiesItselfForAnotherContainer) {
    MMS_COMP_SMILMultipart container;
    addPart(container, "a");
    addPart(container, "b");
    MMS_COMP_SMILData data(&container);
    data.appendMeta("n", "c");
    data.setRootLayout("176px", " 208 ", "ignored");
    data.getRootLayout()->setBackgroundColor("red");
    data.appendRegion("0", "0", "100%", "50%", "meet", "r");
    data.appendRegion(0, 0, 1, 1, "fill", "s")->setId("r2");
    append(data, "img", "a");
    append(data, "img", "b");
    data.getSlide(1)->setDur(-2);
    data.getSlide(1)->setTextSize("big");

    MMS_COMP_SMILMultipart other(container);
    MMS_COMP_SMILData copy(data, &other);
    EXPECT_EQ(sourcesOf(copy), "a|b");
    EXPECT_EQ(copy.getMediaObject(1, 0)->getData(), other.getBodypartByIndex(1, false));
    EXPECT_EQ(copy.getSlide(1)->getTextSize() + QString::number(copy.getSlide(1)->getDur()), "big-2");
    const MMS_COMP_SMILRootLayout& root = *copy.getRootLayout();
    EXPECT_TRUE(root.getWidth() == 176 && root.getBackgroundColor()->kind == MMS_COMP_COLOR_NONE);
    EXPECT_TRUE(copy.getMetaCount() == 1 && copy.getLayoutMeasureUnit() == MMS_COMP_SMIL_UNIT_PERCENT);
    ASSERT_EQ(copy.getRegionCount(), 2);
    EXPECT_EQ(copy.getMeta(0)->getContent() + copy.getRegion(1)->getId(), "cr2");

    delete other.getBodypartByIndex(1, false);
    EXPECT_FALSE(data.copyTo(&copy, &other));
    EXPECT_EQ(sourcesOf(copy), "a|b|a") << "up to the slide whose content is missing";
    EXPECT_EQ(copy.getRegionCount(), 2) << "equal regions are there once";
    EXPECT_FALSE(data.copyTo(&data, &container) || data.copyTo(nullptr, &container));
    MMS_COMP_SMILTimingContainer& slide = *data.getSlide(0);
    EXPECT_FALSE(slide.copyTo(&slide, &container) || slide.copyTo(nullptr, &container));
    data.setMultiPart(nullptr);
    EXPECT_EQ(slide.getMultiPart(), nullptr);
    copy.clean();
    EXPECT_TRUE(copy.isEmpty() && !copy.getMetaCount());
    EXPECT_EQ(copy.getRegionCount(), 2);
}

} // namespace
