// Parts and objects that change owners or are deleted while others refer to them. The sanitizers detect the
// errors.

#include "tests/testing.h"

namespace {

using Object = MMS_COMP_SMILMediaObject;

const QByteArray twoSlides = "<smil><body><par><img src='p.jpg'/><text src='t.txt'/></par>"
                             "<par><ref src='p.jpg'/></par></body></smil>";

/// A document of two slides that share a picture, and its container.
struct Received {
    Received() {
        for (const char* name : {"p.jpg", "t.txt"})
            addPart(*container, name)->setBodyData(name, 5);
        QArray<char> smil = twoSlides;
        EXPECT_EQ(MMS_COMP_SMILParser().parse(smil, container.get(), &data), 0);
    }
    Part* part(int index) const { return container->getBodypartByIndex(index, false); }
    Object* object(int slide, int index) const { return data.getMediaObject(slide, index); }

    std::unique_ptr<MMS_COMP_SMILMultipart> container = std::make_unique<MMS_COMP_SMILMultipart>();
    MMS_COMP_SMILData data{container.get()};
};

/// Calls what a program calls to show a document.
void use(const MMS_COMP_SMILData& data) {
    MMS_COMP_SMILParser::convertToSMILLang(const_cast<MMS_COMP_SMILData*>(&data));
    data.isEmpty();
    data.createUniqueSrc("p.jpg");
    for (int i = 0; i < data.getTotalSlidesNum(); ++i) {
        data.getSlide(i)->getPageSize();
        recordOf(*data.getSlide(i));
    }
}

TEST(Lifetime, PartsDeletedUnderSlides) {
    Received r;
    delete r.part(0);
    EXPECT_EQ(r.container->getPartCount(), 1);
    EXPECT_EQ(r.object(0, 0)->getData(), nullptr);
    EXPECT_EQ(r.object(1, 0)->getData(), nullptr);
    use(r.data);
    r.data.getSlide(0)->clear(); // releases the text, which another object still uses
    EXPECT_EQ(r.container->getPartCount(), 0);
    use(r.data);
}

TEST(Lifetime, DocumentOutlivesThePartsOfItsContainer) {
    Received r;
    r.container->clear();
    EXPECT_EQ(r.object(0, 1)->getData(), nullptr);
    use(r.data);
    r.data.setMultiPart(nullptr);
    r.container.reset();
    r.data.createUniqueSrc("p.jpg");
    MMS_COMP_SMILParser::convertToSMILLang(&r.data);
    r.data.clean();
}

TEST(Lifetime, TakenPartsAndObjectsAreTheCallers) {
    Received r;
    const std::unique_ptr<Object> image(r.data.getSlide(0)->getImgElem(true));
    const std::unique_ptr<Part> picture(r.container->getBodypartByIndex(0, true));
    EXPECT_EQ(r.object(1, 0)->getData(), picture.get());
    EXPECT_EQ(image->getData(), picture.get());
    EXPECT_EQ(picture->getOwner(), nullptr);
    use(r.data);
    r.container->appendBodypart(new Part(*picture)); // a copy that shares the payload
}

TEST(Lifetime, ObjectReadsARecordWhileItsPartSitsInAContainer) {
    Received r;
    const QByteArray record = recordOf(*r.object(0, 0));
    for (int adopted = 0; adopted < 2; ++adopted) {
        MMS_COMP_SMILMultipart second;
        Released<Object> object;
        for (int round = 0; round < 3; ++round) {
            EXPECT_TRUE(read(object, record));
            ASSERT_NE(object.getData(), nullptr);
            if (adopted)
                second.appendBodypart(object.getData());
        }
        EXPECT_EQ(second.getPartCount(), adopted); // each reading deletes the former part
    }
    EXPECT_TRUE(read(*r.object(1, 0), record));
    const std::unique_ptr<Part> restored(r.object(1, 0)->getData());
    EXPECT_EQ(r.container->getPartCount(), 1);
    EXPECT_EQ(r.object(0, 0)->getData(), nullptr);
    use(r.data);
}

TEST(Lifetime, PartsMoveBetweenOwners) {
    Received r;
    MMS_COMP_SMILMultipart second;
    Part* picture = r.part(0);
    EXPECT_EQ(second.appendBodypart(picture), 0);
    EXPECT_EQ(second.appendBodypart(picture), 0);
    EXPECT_EQ(r.container->getPartCount() + second.getPartCount(), 2);
    EXPECT_TRUE(r.part(0)->setSubBody(picture, 0));
    EXPECT_FALSE(picture->setSubBody(r.part(0), 0) || picture->setSubBody(picture, -1));
    Part* last = new Part;
    EXPECT_TRUE(picture->setSubBody(last, 5) && r.part(0)->setSubBody(last, 5));
    EXPECT_EQ(r.part(0)->getSubBody(1), last);
    EXPECT_TRUE(r.part(0)->setSubBody(last, 0));
    EXPECT_EQ(r.part(0)->getSubBody(1), picture);
    EXPECT_FALSE(last->setSubBody(nullptr, 0) || last->rmSubBody(0) || last->rmSubBody(~0u));
    EXPECT_EQ(second.getPartCount(), 0);
    delete r.part(0);
    EXPECT_EQ(r.object(0, 0)->getData(), nullptr);
    use(r.data);
}

} // namespace
