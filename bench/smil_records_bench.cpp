#include "bench/messages.h"
#include "bench/pair.h"

#include <QBuffer>
#include <QDataStream>

namespace {

QByteArray recordOf(const MMS_COMP_SMILTimingContainer& slide) {
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    slide.writeToStream(stream);
    return record;
}

} // namespace

// Yardstick: the octets of the record allocated and copied.
void addFigures() {
    const struct {
        const char* name;
        int size;
    } rows[] = {
        {"slide of 1 KB", 1024},
        {"slide of 50 KB", 50 * 1024},
    };
    for (const auto& row : rows) {
        const auto made = std::make_shared<Presentation>(makePresentation(1, row.size));
        const QByteArray record = recordOf(*made->slides->getSlide(0));
        const auto yardstick = [record] { return QByteArray(record.constData(), record.size()).at(0); };
        const std::string name = row.name;
        addPair(
            "record read/" + name, record.size(),
            [record] {
                QDataStream stream(record);
                MMS_COMP_SMILTimingContainer slide(nullptr);
                const bool read = slide.readFromStream(stream);
                slide.clear(); // the reader of a record owns its parts
                return read;
            },
            yardstick);
        addPair(
            "record write/" + name, record.size(),
            [made] { return recordOf(*made->slides->getSlide(0)).size(); }, yardstick);
    }
}
