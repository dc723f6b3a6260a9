// The container: references, unique names, the presentation part and attachments.

#include "multipart/multipart.h"
#include "tests/octets.h"

#include <memory>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

Part* add(MMS_COMP_SMILMultipart& body, const QString& location, const QString& id = QString()) {
    auto* part = new Part;
    part->setContentLocation(location);
    part->setContentID(id);
    body.appendBodypart(part);
    return part;
}

QString order(MMS_COMP_SMILMultipart& body) {
    QString names;
    for (int i = 0; i < body.getPartCount(); ++i)
        names += body.getBodypartByIndex(i, false)->getContentLocation();
    return names;
}

} // namespace

TEST(Multipart, ContentIdReferences) {
    const struct {
        const char *reference, *bare;
    } rows[] = {{"<a>", "a"}, {"cid:a", "a"}, {"<CID:a>", "a"}, {"cid:<a>", "<a"}, {"a", "a"},
                {"<", ""},    {"", ""},       {"cid", "cid"},   {"<<a>>", "<a>"},  {"cid:cid:a", "cid:a"}};
    for (const auto& row : rows)
        EXPECT_EQ(MMS_COMP_SMILMultipart::parseCid(row.reference), row.bare) << row.reference;

    EXPECT_TRUE(MMS_COMP_SMILMultipart::isCidEqual("<Img1.x>", " cid:img1.x "));
    EXPECT_TRUE(MMS_COMP_SMILMultipart::isCidEqual(u"Ä"_qs, u"<ä>"_qs));
    EXPECT_FALSE(MMS_COMP_SMILMultipart::isCidEqual("", ""));
    EXPECT_FALSE(MMS_COMP_SMILMultipart::isCidEqual("<>", "<>"));
}

TEST(Multipart, FindsPartsByReferenceAndKind) {
    MMS_COMP_SMILMultipart body;
    Part* part = add(body, "A.JPG", "<One>");
    add(body, "b", "a.jpg");
    part->setDispFileType(0);
    EXPECT_EQ(body.getBodyPartBySrc("a.jpg", 0), part);
    EXPECT_EQ(body.getBodyPartBySrc("a.jpg", 1)->getContentLocation(), "b");
    part->setDispFileType(1);
    EXPECT_EQ(body.getBodyPartBySrc("a.jpg", 1), part);
    EXPECT_EQ(body.getBodyPartBySrc("cid:one", 1), part);
    EXPECT_EQ(body.getBodyPartBySrc("cid:a.JPG", 1)->getContentLocation(), "b");
    EXPECT_EQ(body.getBodyPartBySrc("<a.jpg", 0), nullptr);
    EXPECT_EQ(body.getBodyPartBySrc("", 1), nullptr);
}

TEST(Multipart, PartsGoWhereTheyAreInserted) {
    MMS_COMP_SMILMultipart body;
    const std::pair<const char*, int> inserted[] = {{"a", 7}, {"b", -3}, {"c", 1}, {"d", 3}, {"e", 0}};
    for (const auto& [name, index] : inserted) {
        auto* part = new Part;
        part->setContentLocation(name);
        EXPECT_EQ(body.insertBodypart(part, index), 0);
    }
    EXPECT_EQ(order(body), "ebcad");
    EXPECT_EQ(body.insertBodypart(nullptr, 0), -21);
    EXPECT_EQ(body.getBodypartByIndex(5, true), nullptr);
    EXPECT_EQ(body.deletePart(-1), -22);
    const std::unique_ptr<Part> taken(body.getBodypartByIndex(1, true));
    EXPECT_EQ(order(body), "ecad");
    EXPECT_EQ(body.deletePart(0), 0);
    EXPECT_EQ(order(body), "cad");
}

TEST(Multipart, SharedPartsLoseReferencesFirst) {
    MMS_COMP_SMILMultipart body;
    add(body, "x");
    add(body, "y");
    add(body, "X")->setRefCount(2);
    add(body, "x");
    EXPECT_EQ(body.deletePartBySrc(""), -22);
    EXPECT_EQ(body.deletePartBySrc("none"), 0);
    EXPECT_EQ(body.deletePartBySrc("x"), 0);
    EXPECT_EQ(order(body), "yXx");
    EXPECT_EQ(body.getBodypartByIndex(1, false)->getRefCount(), 1);
    EXPECT_EQ(body.deletePartBySrc("x"), 0);
    EXPECT_EQ(order(body), "y");
}

TEST(Multipart, UniqueLocations) {
    const QString a84(84, 'a'), a88(88, 'a'), a100(100, 'a');
    const struct {
        const char* name;
        QStringList taken;
        QString wanted, unique;
    } rows[] = {
        {"free", {}, "dir/a&b.gif", "ab.gif"},
        {"taken", {"PHOTO.jpg"}, "photo.jpg", "photo_0.jpg"},
        {"taken twice", {"photo.jpg", "photo_0.jpg"}, "c:\\photo.jpg", "photo_1.jpg"},
        {"no extension", {"photo"}, "photo", "photo_0"},
        {"too long", {}, a100 + ".jpeg", a84 + ".jpeg"},
        {"too long, no extension", {}, a100, a88 + "_0"},
        {"uncut, no extension", {}, QString(95, 'a'), QString(95, 'a')},
        {"no URL", {}, "1:2.jpg", "renamed.jpg"},
        {"no URL, no extension", {}, "1:2", "renamed_0"},
        {"nothing", {}, "", "renamed_0"},
        {"endless extension", {}, "photo." + a100, "photo"},
        {"endless extension, taken", {"photo"}, "photo." + a100, "photo_0"},
        {"extension valid once", {"x.:"}, "x.:", "x"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MMS_COMP_SMILMultipart body;
        for (const QString& taken : row.taken)
            add(body, taken);
        EXPECT_EQ(body.createUniqueLocation(row.wanted), row.unique);
    }
}

TEST(Multipart, TakenNames) {
    MMS_COMP_SMILMultipart body;
    EXPECT_TRUE(body.isPartExist(QString(100, 'a')));
    EXPECT_FALSE(body.isPartExist(QString(99, 'a')));
    EXPECT_TRUE(body.isPartExist("1:2"));
    EXPECT_TRUE(body.isPartExist(""));
    add(body, "", " <file0.JPG> ");
    add(body, "FILE1.jpg")->setDispFileType(0);
    EXPECT_TRUE(body.isPartExist("cid:file0.jpg"));
    EXPECT_EQ(body.createUniqueAttchmentLocation("jpg"), "file2.jpg");
    EXPECT_EQ(body.createUniqueAttchmentLocation(""), "file0");
    EXPECT_EQ(body.createUniqueAttchmentLocation(QString(100, 'x')), "file0");
}

TEST(Multipart, PresentationPart) {
    MMS_COMP_SMILMultipart body;
    EXPECT_EQ(body.getSmilPart(), nullptr);
    Part* first = add(body, "s.smil", "<s>");
    first->setContentType("Application");
    Part* second = add(body, "t.smil");
    EXPECT_EQ(body.getSmilPart(), nullptr);
    first->setContentSubType("SMIL");
    body.setMimeType("multipart"); // not a related body
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
    add(body, "s")->setDispFileType(0);
    add(body, "a")->setContentType("image");
    add(body, "b")->setContentType("Audio");
    EXPECT_EQ(body.getAttachmentCount(), 2);
    EXPECT_EQ(body.getAttachment(1)->getContentLocation(), "b");
    EXPECT_EQ(body.getAttachment(2), nullptr);
    EXPECT_EQ(body.getAttachment(-1), nullptr);
    bool attachment = false, image = false, audio = true;
    body.isContainAttachImgAudio(&attachment, &image, &audio, nullptr);
    EXPECT_TRUE(attachment && image);
    EXPECT_FALSE(audio); // written "Audio"
    body.setMimeType("multipart");
    EXPECT_EQ(body.getAttachmentCount(), 3);
    EXPECT_EQ(body.getAttachment(0)->getContentLocation(), "s");

    EXPECT_FALSE(body.isContainUPI());
    EXPECT_EQ(body.getFirstUPIPart(true), nullptr);
    body.getAttachment(1)->setPartFlags(1);
    EXPECT_TRUE(body.isContainUPI());
    const std::unique_ptr<Part> prompting(body.getFirstUPIPart(true));
    EXPECT_EQ(prompting->getContentLocation(), "a");
    EXPECT_EQ(order(body), "sb");
}

TEST(Multipart, CopiesAndClearing) {
    MMS_COMP_SMILMultipart body;
    body.setBoundary("b");
    body.setOtherContentTypeParam("o");
    body.setStart("s");
    add(body, "a")->setBodyData("xyz", 3);
    MMS_COMP_SMILMultipart copy(body);
    EXPECT_EQ(copy.getStart(), "s");
    EXPECT_TRUE(copy.getBoundary().isNull() && copy.getOtherContentTypeParam().isNull());
    copy.copyFrom(copy);
    EXPECT_EQ(order(copy), "aa");
    EXPECT_EQ(order(body), "a");
    body.clear();
    EXPECT_EQ(body.getPartCount(), 0);
    EXPECT_EQ(body.getExtType(), ""); // not that of a new container
    EXPECT_EQ(body.getMimeType(), "application");
    EXPECT_EQ(body.getStart() + body.getBoundary() + body.getOtherContentTypeParam(), "bo");
}
