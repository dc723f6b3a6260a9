// Stored records of body part, media object and slide: read, written, and read again.

#include "fuzz/input.h"
#include "multipart/multipart.h"
#include "smil/model/slide.h"

#include <QBuffer>
#include <QDataStream>

namespace {

/// Reads a record into `made`; returns its octets, or -1 on failure.
template <typename Model>
qint64 readInto(Model& made, const QByteArray& octets, bool littleEndian) {
    QDataStream stream(octets);
    stream.setByteOrder(littleEndian ? QDataStream::LittleEndian : QDataStream::BigEndian);
    const int version = stream.version();
    const bool read = made.readFromStream(stream);
    require(stream.version() == version, "the stream keeps its version");
    return read && stream.status() == QDataStream::Ok ? stream.device()->pos() : -1;
}

template <typename Model>
QByteArray written(const Model& model, bool littleEndian) {
    QByteArray octets;
    QDataStream stream(&octets, QIODevice::WriteOnly);
    stream.setByteOrder(littleEndian ? QDataStream::LittleEndian : QDataStream::BigEndian);
    require(model.writeToStream(stream) && stream.status() == QDataStream::Ok, "a record is written");
    return octets;
}

// Deletes what was read: the reader owns parts that nothing has taken over.
void release(MMS_COMP_SMILMultipartBodypart&) {
}
void release(MMS_COMP_SMILMediaObject& object) {
    object.clear();
}
void release(MMS_COMP_SMILTimingContainer& slide) {
    slide.clear();
}

/// Reads a record, writes it, and reads that again.
template <typename Model, typename Make>
void passThrough(const QByteArray& input, bool littleEndian, Make make) {
    const std::unique_ptr<Model> first = make();
    const qint64 used = readInto(*first, input, littleEndian);
    const QByteArray record = written(*first, littleEndian);
    if (used >= 0)
        require(record.size() <= used, "no more is written than was read");
    const std::unique_ptr<Model> second = make();
    const qint64 reused = readInto(*second, record, littleEndian);
    if (used >= 0)
        require(reused == record.size() && written(*second, littleEndian) == record,
                "a record comes back as it was");
    release(*first);
    release(*second);
}

/// An object that reads several records in a row, while other objects or a container may own its part.
void rereadObject(const QByteArray& input, Choices choices) {
    MMS_COMP_SMILMultipart container;
    MMS_COMP_SMILMediaObject object(nullptr);
    MMS_COMP_SMILMediaObject other(&container);
    QDataStream stream(input);
    BodypartLink parts[8];
    for (size_t i = 0; i < std::size(parts); i += 2) {
        object.readFromStream(stream);
        MMS_COMP_SMILMultipartBodypart* part = object.getData();
        parts[i].pointAt(part);
        switch (choices.next(8)) {
        case 0:
            container.appendBodypart(part);
            break;
        case 1:
            delete part;
            break;
        case 2:
            other.setData(part);
            other.clear();
            break;
        case 3:
            object.setMultiPart(&container);
            object.clear();
            break;
        case 4:
            other.setData(part);
            other.readFromStream(stream);
            parts[i + 1].pointAt(other.getData());
            break;
        case 5:
            container.appendBodypart(part);
            container.clear();
            break;
        case 6:
            if (part)
                part->setSubBody(container.getBodypartByIndex(0, false), 0);
            break;
        default:
            object.clear();
        }
        if (MMS_COMP_SMILMultipartBodypart* still = object.getData())
            touched(still->getBodyData());
        if (MMS_COMP_SMILMultipartBodypart* still = other.getData())
            touched(still->getContentLocation());
    }
    for (const BodypartLink& part : parts)
        if (part.get() && !part.get()->getOwner())
            delete part.get();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0)
        return 0;
    const uint8_t choice = data[0];
    const ExactInput input(data + 1, size - 1);
    const auto octets =
        QByteArray::fromRawData(reinterpret_cast<const char*>(input.data()), qsizetype(input.size()));
    const bool littleEndian = choice & 0x80;
    using Part = MMS_COMP_SMILMultipartBodypart;
    using Object = MMS_COMP_SMILMediaObject;
    using Slide = MMS_COMP_SMILTimingContainer;
    switch (choice % 4) {
    case 0:
        passThrough<Part>(octets, littleEndian, [] { return std::make_unique<Part>(); });
        break;
    case 1:
        passThrough<Object>(octets, littleEndian, [] { return std::make_unique<Object>(nullptr); });
        break;
    case 2:
        passThrough<Slide>(octets, littleEndian, [] { return std::make_unique<Slide>(nullptr); });
        break;
    default:
        rereadObject(octets, Choices(data + 1, size - 1));
    }
    return 0;
}
