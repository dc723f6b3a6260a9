#include "bench/messages.h"
#include "bench/pair.h"
#include "multipart/multipart_parser.h"

namespace {

constexpr int mostParts = 255; // the largest count of a body

/// Yardstick: that many names as QStrings.
std::vector<QString> makeNames() {
    static const std::vector<QByteArray> names(mostParts, QByteArray("photo_100.jpg"));
    return makeStrings(names);
}

void forgetNames(MMS_COMP_SMILMultipart& body) {
    for (int i = 0; i < body.getPartCount(); ++i) {
        MMS_COMP_SMILMultipartBodypart* part = body.getBodypartByIndex(i, false);
        part->setContentLocation(QString());
        part->setDispFileName(QString());
    }
}

} // namespace

void addFigures() {
    const std::shared_ptr<MMS_COMP_SMILMultipart> nameless = makeBody(mostParts, 16);
    addPair(
        "checkLocation/255 parts without a name", mostParts,
        [nameless] {
            forgetNames(*nameless);
            MMS_COMP_SMILMultipartParser::checkLocation(nameless.get());
            return nameless->getPartCount();
        },
        makeNames);
    const std::shared_ptr<MMS_COMP_SMILMultipart> named = makeBody(mostParts, 16);
    addPair(
        "checkLocation/255 parts with names", mostParts,
        [named] {
            MMS_COMP_SMILMultipartParser::checkLocation(named.get());
            return named->getPartCount();
        },
        makeNames);
    const std::shared_ptr<MMS_COMP_SMILMultipart> taken = makeBody(0, 0);
    for (int i = 0; i < mostParts; ++i) {
        auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
        part->setContentLocation(taken->createUniqueLocation(QStringLiteral("photo.jpg")));
        taken->appendBodypart(part.release());
    }
    addPair(
        "createUniqueLocation/255 taken names", mostParts,
        [taken] { return taken->createUniqueLocation(QStringLiteral("photo.jpg")).size(); }, makeNames);
}
