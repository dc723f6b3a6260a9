#include "octets.h"

#include "multipart/multipart.h"
#include "smil/model/presentation.h"

#include <QDomDocument>

#include <memory>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

Part* addPart(MMS_COMP_SMILMultipart& container, const QString& location, const QString& id = QString()) {
    auto* part = new Part;
    part->setContentLocation(location);
    part->setContentID(id);
    container.appendBodypart(part);
    return part;
}

int append(MMS_COMP_SMILData& data, const QString& tag, const QString& src, bool newSlide = false) {
    QDomDocument document;
    QDomElement element = document.createElement(tag);
    element.setAttribute("src", src);
    return data.appendElementObject(&element, data.getMultiPart(), newSlide, 3000, nullptr);
}

/// The sources of a document's objects, slides divided by bars.
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

TEST(Presentation, SpreadsElementsOverSlides) {
    const struct {
        QStringList tags;
        const char* slides; // the elements by number
    } rows[] = {
        {{"img", "img"}, "0|1"},
        {{"text", "video", "audio", "ref", "ref"}, "01234"},
        {{"img", "video", "text", "text"}, "0|12|3"},
        {{"+ref", "+ref", "ref", " IMG "}, "0|123"},
        {{"audio", "ref", "audio", "ref", "+text"}, "01|23|4"},
    };
    for (const auto& row : rows) {
        MMS_COMP_SMILMultipart container;
        MMS_COMP_SMILData data(&container);
        for (int i = 0; i < row.tags.size(); ++i) {
            const bool newSlide = row.tags[i].startsWith('+');
            addPart(container, QString::number(i));
            EXPECT_EQ(append(data, row.tags[i].mid(newSlide ? 1 : 0), QString::number(i), newSlide), 0);
        }
        EXPECT_EQ(sourcesOf(data), row.slides);
        EXPECT_EQ(data.getSlide(0)->getDur(), 3000);
    }
}

TEST(Presentation, RefusesWhatItCannotShow) {
    MMS_COMP_SMILMultipart container;
    MMS_COMP_SMILData data(&container);
    EXPECT_EQ(append(data, "animation", "a"), 1);
    EXPECT_EQ(append(data, "img", "a"), 3);
    EXPECT_EQ(append(data, "img", "a", true), 3);
    MMS_COMP_SMILMediaObject* object = nullptr;
    EXPECT_EQ(data.appendElementObject(nullptr, &container, true, 0, &object), 1);
    EXPECT_EQ(data.getTotalSlidesNum(), 0);
    EXPECT_FALSE(data.insertMediaObject(0, 0, nullptr));
    EXPECT_FALSE(data.deleteMediaObject(0, 0));
    EXPECT_EQ(data.getMediaObject(0, 0), nullptr);
    EXPECT_EQ(data.getMediaObjectCount(-1), 0);
}

TEST(Presentation, ReadsVeryManyElements) {
    MMS_COMP_SMILMultipart container;
    addPart(container, "a");
    MMS_COMP_SMILData data(&container);
    for (int i = 0; i < 100000; ++i)
        append(data, "ref", "a");
    for (int i = 0; i < 100000; ++i)
        append(data, "img", "missing");
    EXPECT_EQ(data.getMediaObjectCount(0), 100000);
    EXPECT_EQ(data.createUniqueSrc("a"), "a_0");
}

TEST(Presentation, FindsAFreeName) {
    const QString base95(95, 'b');
    const struct {
        QString src, name;
    } rows[] = {{"/dir/photo.jpg", "photo.jpg"},
                {"dir\\a&b.gif", "ab.gif"},
                {"used.jpg", "used_0.jpg"},
                {"loc.jpg", "loc_0.jpg"},
                {"LOC.jpg", "LOC_0.jpg"},
                {"id", "id_0"},
                {"attached.x", "attached_0.x"},
                {"series.x", "series_2.x"},
                {base95 + ".jpg", base95.left(85) + ".jpg"},
                {base95, base95.left(88)},
                {"1:2.gif", "renamed.gif"},
                {"", "renamed"},
                {"x.:", "x"},
                {"a." + QString(200, 'e'), "a"}};
    MMS_COMP_SMILMultipart container, elsewhere;
    MMS_COMP_SMILData data(&container);
    for (const char* src : {"used.jpg", "series.x", "series_0.x", "series_1.x", "x.:"}) {
        auto* object = new MMS_COMP_SMILMediaObject(nullptr);
        object->setSrc(src);
        data.appendSlide()->appendObject(object);
    }
    data.getMediaObject(0, 0)->setData(addPart(elsewhere, "Loc.JPG", "<ID>"));
    addPart(container, "ATTACHED.x");
    for (const auto& row : rows) {
        const QString name = data.createUniqueSrc(row.src);
        EXPECT_EQ(name, row.name) << qPrintable(row.src);
        EXPECT_FALSE(data.isElemNameExist(name));
    }
    EXPECT_FALSE(data.isElemNameExist(QString(99, 'a')));
    EXPECT_TRUE(data.isElemNameExist(QString(100, 'a')));
    EXPECT_TRUE(data.isElemNameExist("cid:id"));
    EXPECT_FALSE(data.isElemNameExist("USED.jpg")) << "a src is compared exactly";
}

TEST(Presentation, DeletesTheFirstObjectWithThatContent) {
    MMS_COMP_SMILMultipart container;
    addPart(container, "a", "<x>");
    addPart(container, "A");
    MMS_COMP_SMILData data(&container);
    for (const char* src : {"a", "A", "a", "x"})
        append(data, "ref", src, true);
    data.getMediaObject(1, 0)->setData(container.getBodypartByIndex(1, false));
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
    const struct {
        MMS_COMP_COLOR color;
        bool plain;
    } colors[] = {{{MMS_COMP_COLOR_NONE, "", QColor()}, true},
                  {{MMS_COMP_COLOR_UNREADABLE, "", QColor(255, 0, 0)}, true},
                  {{MMS_COMP_COLOR_NAMED, "white", QColor(255, 255, 255)}, true},
                  {{MMS_COMP_COLOR_NUMERIC, "", QColor(255, 255, 255)}, true},
                  {{MMS_COMP_COLOR_NAMED, "red", QColor(255, 0, 0)}, false},
                  {{MMS_COMP_COLOR_NUMERIC, "", QColor(255, 255, 254)}, false},
                  {{MMS_COMP_COLOR_NAMED, "", QColor()}, false}};
    const struct {
        const char* companion;
        bool shown;
    } companions[] = {{"", false}, {"ref", false}, {"img", true}, {"video", true}, {"audio", true}};
    for (const auto& color : colors) {
        for (const auto& companion : companions) {
            for (const char* content : {"", "x"}) {
                MMS_COMP_SMILMultipart container;
                addPart(container, "t")->setBodyData(QByteArray(content));
                addPart(container, "c");
                MMS_COMP_SMILData data(&container);
                append(data, "text", "t");
                if (*companion.companion)
                    append(data, companion.companion, "c");
                data.getSlide(0)->setPageColor(color.color);
                data.removeEmptyTextBeforeSend();
                const bool gone = !*content && (color.plain || companion.shown);
                EXPECT_EQ(data.getSlide(0)->getTextElem() == nullptr, gone)
                    << color.color.kind << color.color.color.name().toStdString() << companion.companion
                    << content;
                EXPECT_EQ(container.getPartCount(), gone ? 1 : 2);
            }
        }
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

    MMS_COMP_SMILMultipart other(container);
    MMS_COMP_SMILData copy(data, &other);
    EXPECT_EQ(sourcesOf(copy), "a|b");
    EXPECT_EQ(copy.getMediaObject(1, 0)->getData(), other.getBodypartByIndex(1, false));
    EXPECT_EQ(copy.getMeta(0)->getContent(), "c");
    EXPECT_EQ(copy.getRootLayout()->getWidth(), 176);
    EXPECT_EQ(copy.getRootLayout()->getBackgroundColor()->kind, MMS_COMP_COLOR_NONE);
    EXPECT_EQ(copy.getLayoutMeasureUnit(), MMS_COMP_SMIL_UNIT_PERCENT);
    ASSERT_EQ(copy.getRegionCount(), 2);
    EXPECT_EQ(copy.getRegion(1)->getId(), "r2");

    delete other.getBodypartByIndex(1, false);
    EXPECT_FALSE(data.copyTo(&copy, &other));
    EXPECT_EQ(sourcesOf(copy), "a|b|a") << "up to the slide whose content is missing";
    EXPECT_EQ(copy.getRegionCount(), 2) << "equal regions are there once";
    EXPECT_FALSE(data.copyTo(&data, &container));
    EXPECT_FALSE(data.copyTo(nullptr, &container));
    copy.clean();
    EXPECT_EQ(copy.getMetaCount() + copy.getTotalSlidesNum(), 0);
    EXPECT_EQ(copy.getRegionCount(), 2);
}

TEST(Presentation, SurvivesTheDeletionOfItsParts) {
    MMS_COMP_SMILData data(nullptr);
    {
        MMS_COMP_SMILMultipart container;
        data.setMultiPart(&container);
        for (const char* src : {"a", "b"})
            addPart(container, src);
        append(data, "text", "a");
        append(data, "img", "b");
        container.clear();
        EXPECT_FALSE(data.isEmpty());
        EXPECT_EQ(data.createUniqueSrc("a"), "a_0");
        EXPECT_FALSE(data.isElemNameExist("A"));
        data.deleteObjectByDataLocation("a");
        MMS_COMP_SMILData copy(data, &container);
        EXPECT_EQ(copy.getTotalSlidesNum(), 0);
        EXPECT_EQ(copy.getMultiPart(), &container);
        data.removeEmptyTextBeforeSend();
        EXPECT_EQ(sourcesOf(data), "b");
        data.setMultiPart(nullptr);
    }
    EXPECT_EQ(data.getSlide(0)->getMultiPart(), nullptr);
    EXPECT_TRUE(data.deleteMediaObject(0, 0));
    EXPECT_TRUE(data.isEmpty());
    EXPECT_FALSE(data.isElemNameExist("b"));
}

} // namespace
