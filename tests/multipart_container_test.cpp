// The container: references, unique names, the presentation part and attachments.

#include "tests/testing.h"

namespace {

QString order(MMS_COMP_SMILMultipart& body) {
    QString names;
    for (int i = 0; i < body.getPartCount(); ++i)
        names += body.getBodypartByIndex(i, false)->getContentLocation();
    return names;
}

} // namespace

TEST(Multipart, ContentIdReferences) {
    const std::pair<const char*, const char*> rows[] = {
        {"<a>", "a"}, {"cid:a", "a"}, {"<CID:a>", "a"}, {"cid:<a>", "<a"},     {"<", ""},
        {"", ""},     {"cid", "cid"}, {"<<a>>", "<a>"}, {"cid:cid:a", "cid:a"}};
    for (const auto& [reference, bare] : rows)
        EXPECT_EQ(MMS_COMP_SMILMultipart::parseCid(reference), bare) << reference;
    EXPECT_TRUE(MMS_COMP_SMILMultipart::isCidEqual("<Img1.x>", " cid:img1.x "));
    EXPECT_TRUE(MMS_COMP_SMILMultipart::isCidEqual(QStringLiteral("Ä"), QStringLiteral("<ä>")));
    EXPECT_FALSE(MMS_COMP_SMILMultipart::isCidEqual("<>", "<>"));
}

TEST(Multipart, FindsPartsByReferenceAndKind) {
    MMS_COMP_SMILMultipart body;
    Part *part = addPart(body, "A.JPG", 0), *other = addPart(body, "b");
    part->setContentID("<One>");
    other->setContentID("a.jpg");
    EXPECT_EQ(body.getBodyPartBySrc("a.jpg", 1), other);
    part->setDispFileType(1);
    EXPECT_EQ(body.getBodyPartBySrc("a.jpg", 1), part);
    EXPECT_EQ(body.getBodyPartBySrc("cid:one", 1), part);
    EXPECT_EQ(body.getBodyPartBySrc("cid:a.JPG", 1), other);
    EXPECT_TRUE(!body.getBodyPartBySrc("<a.jpg", 0) && !body.getBodyPartBySrc("", 1));
}

TEST(Multipart, FindsPartsAmongManyAsAmongFew) {
    MMS_COMP_SMILMultipart many; // looked up often enough for an index
    QList<Part*> parts;
    for (int i = 0; i < 300; ++i) {
        parts += addPart(many, i % 3 ? QString::number(i % 100) : QString(), i % 2);
        parts.last()->setContentID(i % 5 ? QStringLiteral("<Id%1>").arg(i % 70) : QString());
    }
    const auto expectFound = [&] {
        for (int i = 0; i < 100; ++i)
            for (const QString& src :
                 {QString::number(i), QStringLiteral("cid:id%1").arg(i), QString("<>")}) {
                const auto meant = std::find_if(parts.begin(), parts.end(), [&](const Part* part) {
                    return part->getDispFileType() == i % 2 &&
                           (part->getContentLocation() == src ||
                            MMS_COMP_SMILMultipart::isCidEqual(part->getContentID(), src));
                });
                EXPECT_EQ(many.getBodyPartBySrc(src, i % 2), meant == parts.end() ? nullptr : *meant) << i;
            }
    };
    expectFound();
    parts[7]->setContentLocation("8");
    parts[8]->setContentID("id9");
    expectFound();
    parts[2]->setDispFileType(1);
    EXPECT_EQ(many.deletePart(4), 0);
    parts.removeAt(4);
    expectFound();
    delete parts.takeAt(9);
    many.insertBodypart(parts.last(), 0);
    parts.prepend(parts.takeLast());
    expectFound();
}

TEST(Multipart, PartsGoWhereTheyAreInserted) {
    MMS_COMP_SMILMultipart body, other;
    const std::pair<const char*, int> inserted[] = {{"a", 7}, {"b", -3}, {"c", 1}, {"d", 3}, {"e", 0}};
    for (const auto& [name, index] : inserted)
        EXPECT_EQ(body.insertBodypart(addPart(other, name), index), 0);
    EXPECT_EQ(order(body), "ebcad");
    EXPECT_EQ(body.insertBodypart(nullptr, 0), -21);
    EXPECT_EQ(body.deletePart(1), 0);
    EXPECT_EQ(order(body), "ecad");
}

TEST(Multipart, SharedPartsLoseReferencesFirst) {
    MMS_COMP_SMILMultipart body;
    for (const char* name : {"x", "y", "X", "x"})
        addPart(body, name);
    body.getBodypartByIndex(2, false)->setRefCount(2);
    EXPECT_EQ(body.deletePartBySrc(""), -22);
    EXPECT_EQ(body.deletePartBySrc("x"), 0);
    EXPECT_EQ(order(body), "yXx");
    EXPECT_EQ(body.getBodypartByIndex(1, false)->getRefCount(), 1);
    EXPECT_EQ(body.deletePartBySrc("x"), 0);
    EXPECT_EQ(order(body), "y");
    Part *named = addPart(body, " <cid:A> "), *other = addPart(body, "b");
    other->setContentID("<a>");
    EXPECT_EQ(body.deletePartLike(*named), 0); // by either of its names
    EXPECT_EQ(order(body), "y");
    EXPECT_EQ(body.deletePartLike(Part()), -22);
}

TEST(Multipart, UniqueLocations) {
    const QString a84(84, 'a'), a88(88, 'a'), a95(95, 'a'), a100(100, 'a');
    // names in use, wanted name, unique name
    const std::tuple<QString, QString, QString> rows[] = {
        {"", "dir/a&b.gif", "ab.gif"},
        {"PHOTO.jpg photo_0.jpg", "c:\\photo.jpg", "photo_1.jpg"},
        {"", a100 + ".jpeg", a84 + ".jpeg"},
        {"", a100, a88 + "_0"},
        {"", a95, a95},
        {"", "1:2.jpg", "renamed.jpg"},
        {"", "1:2", "renamed_0"},
        {"photo", "photo." + a100, "photo_0"},
        {"x.:", "x.:", "x"}};
    for (const auto& [takenNames, wanted, unique] : rows) {
        MMS_COMP_SMILMultipart body;
        for (const QString& taken : takenNames.split(' '))
            addPart(body, taken);
        EXPECT_EQ(body.createUniqueLocation(wanted), unique);
    }
}

TEST(Multipart, TakenNames) {
    MMS_COMP_SMILMultipart body;
    addPart(body, "")->setContentID(" <file0.JPG> ");
    addPart(body, "FILE1.jpg", 0);
    EXPECT_TRUE(body.isPartExist("cid:file0.jpg"));
    EXPECT_EQ(body.createUniqueAttchmentLocation("jpg"), "file2.jpg");
    EXPECT_EQ(body.createUniqueAttchmentLocation(""), "file0");
    EXPECT_EQ(body.createUniqueAttchmentLocation(QString(100, 'x')), "file0");
}

TEST(Multipart, PresentationPart) {
    MMS_COMP_SMILMultipart body;
    Part *first = addPart(body, "s.smil"), *second = addPart(body, "t.smil");
    first->setContentID("<s>");
    EXPECT_EQ(body.getSmilPart(), nullptr);
    setType(*first, "Application/SMIL");
    body.setMimeType("multipart"); // no related multipart
    EXPECT_EQ(body.getSmilPart(), nullptr);
    body.setMimeType("Application");
    EXPECT_EQ(body.getSmilPart(), first);
    EXPECT_EQ(first->getDispFileType(), 0);
    body.setStart("T.smil");
    EXPECT_EQ(second->getDispFileType(), 0);
    EXPECT_EQ(body.getSmilPart(), second);
}

TEST(Multipart, AttachmentsOfRelatedAndMixedBodies) {
    MMS_COMP_SMILMultipart body;
    addPart(body, "s", 0);
    Part* image = addPart(body, "a");
    image->setContentType("image");
    addPart(body, "b")->setContentType("Audio");
    EXPECT_EQ(body.getAttachmentCount(), 2);
    EXPECT_EQ(body.getAttachment(0), image);
    bool found[] = {false, false, true};
    body.isContainAttachImgAudio(&found[0], &found[1], &found[2], nullptr);
    EXPECT_TRUE(found[0] && found[1] && !found[2]); // "Audio" with a capital does not count
    body.setMimeType("multipart");
    EXPECT_EQ(body.getAttachmentCount(), 3);
    EXPECT_EQ(body.getAttachment(1), image);

    EXPECT_TRUE(!body.isContainUPI() && !body.getFirstUPIPart(true));
    image->setPartFlags(1);
    EXPECT_TRUE(body.isContainUPI());
    EXPECT_EQ(std::unique_ptr<Part>(body.getFirstUPIPart(true)).get(), image);
    EXPECT_EQ(order(body), "sb");
}

TEST(Multipart, CopiesAndClearing) {
    MMS_COMP_SMILMultipart body;
    body.setBoundary("b");
    body.setOtherContentTypeParam("o");
    body.setStart("s");
    addPart(body, "a");
    MMS_COMP_SMILMultipart copy(body);
    EXPECT_EQ(copy.getStart() + copy.getBoundary() + copy.getOtherContentTypeParam() + order(copy), "sa");
    body.clear(); // the type is empty then, unlike in a new container
    EXPECT_EQ(body.getStart() + body.getBoundary() + body.getOtherContentTypeParam() + body.getExtType() +
                  order(body),
              "bo");
    copy.copyFrom(copy);
    EXPECT_EQ(order(copy), "aa");
}
