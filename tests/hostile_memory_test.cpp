// Memory used by reading a body: for payloads at most half as much again, and a bounded amount for each part
// and each octet of headers. (Not built with the sanitizers, which have an allocator of their own.)

#include "tests/testing.h"

#include <malloc.h>

namespace {

qint64 inUse = 0;
qint64 most = 0;

void* counted(void* memory) {
    inUse += static_cast<qint64>(malloc_usable_size(memory));
    most = std::max(most, inUse);
    return memory;
}

} // namespace

// Replaces the C library's allocator by one that counts.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void __libc_free(void* memory);

void* malloc(size_t size) {
    return counted(__libc_malloc(size));
}
void* calloc(size_t count, size_t size) {
    return counted(__libc_calloc(count, size));
}
void* realloc(void* memory, size_t size) {
    const auto before = static_cast<qint64>(malloc_usable_size(memory));
    void* grown = __libc_realloc(memory, size);
    if (grown || !size)
        inUse -= before;
    return grown ? counted(grown) : grown;
}
void free(void* memory) {
    inUse -= static_cast<qint64>(malloc_usable_size(memory));
    __libc_free(memory);
}
}

namespace {

constexpr int size = 300 * 1024;

QByteArray nested(QByteArray data) {
    for (int depth = 0; depth < 16; ++depth)
        data = '\1' + entry("\xC8", data);
    return data;
}

/// Number of parts within a part, itself included. Adds up their payloads.
int count(const Part& part, qint64& payloads) {
    payloads += part.getBodyData().size();
    int parts = 1;
    for (int i = 0; i < part.getSubBodyCount(); ++i)
        parts += count(*part.getSubBody(unsigned(i)), payloads);
    return parts;
}

TEST(Memory, StaysWithinThePayloads) {
    const auto text = [](const char* mib, const QByteArray& piece) {
        const QByteArray number = octets(mib);
        return '\1' + entry(char(2 + number.size()) + octets("83 81") + number,
                            piece.repeated(size / int(piece.size())));
    };
    const struct {
        const char* name;
        QByteArray body;
        qint64 received; ///< octets of data in the message
        qint64 headers;  ///< octets of headers in the message
    } rows[] = {
        {"a picture within sixteen bodies", nested('\1' + entry("\x9E", QByteArray(size, 'x'))), size, 0},
        {"an announced length without data", '\1' + uintvar(1) + uintvar(size) + "\x9E", 0, 0},
        {"a text that grows threefold", text("02 08 CC", "\x80"), size, 0},
        {"a text that grows a little", text("02 08 CC", "123456789\x80"), size, 0},
        {"a text in ISO-2022-KR", text("A5", "\x0E\x30\x21\x0F"), size, 0},
        {"a text in UTF-32", text("02 03 F9", QByteArray("x\0\0\0", 4)), size, 0},
        {"a text in UTF-16", text("02 03 F7", QByteArray("\x4E\x00", 2)), size, 0},
        {"a text that ends at once", text("02 03 F7", QByteArray("\0\0", 2)), size, 0},
        {"255 pictures", '\xFF' + entry("\x9E", QByteArray(size / 255, 'x')).repeated(255), size, 0},
        {"255 empty parts", '\xFF' + entry("\x9E", QByteArray()).repeated(255), 0, 0},
        {"65,000 parts in bodies", '\xFF' + entry("\xC8", '\xFF' + entry("\x83").repeated(255)).repeated(255),
         0, 0},
        {"unknown headers", '\1' + entry("\x9E" + QByteArray(size, 'x'), QByteArray()), 0, size},
        {"a long type of two words",
         '\1' + entry(QByteArray(size / 2, 'x') + '/' + QByteArray(size / 2, 'x') + '\0', {}), 0, size},
        {"a long id", '\1' + entry("\x9E\xC0" + QByteArray(size, 'x') + '\0', QByteArray()), 0, size},
    };
    MMS_UA_UAMsg header;
    for (int warm = 0; warm < 2; ++warm) // Qt's tables of charsets and types are allocated in the first round
        for (const auto& row : rows) {
            const QArray<char> input = row.body;
            MMS_COMP_SMILMultipart container;
            const qint64 before = inUse;
            most = inUse;
            MMS_COMP_SMILMultipartParser::parse(input, &header, &container);
            const qint64 took = most - before;
            if (!warm)
                continue;
            qint64 parts = 0, payloads = 0;
            for (int i = 0; i < container.getPartCount(); ++i)
                parts += count(*container.getBodypartByIndex(i, false), payloads);
            payloads = std::max(payloads, row.received);
            constexpr qint64 ofAPart = 600, ofATextOctet = 12, ofTheReader = 64 * 1024;
            EXPECT_LE(took, payloads * 3 / 2 + parts * ofAPart + row.headers * ofATextOctet + ofTheReader)
                << row.name;
        }
}

// Memory of the tree of a message as it was sent, and of the record and container filled from it: linear in
// what is no payload.
TEST(Memory, OfAMessageAsItWasSent) {
    constexpr int size = 16 * 1024;
    const auto many = [](const char* hex) { return octets(hex).repeated(size / octets(hex).size()); };
    const struct {
        const char* name;
        QByteArray pdu;
        qint64 payload;
    } rows[] = {
        {"empty texts", many("96 00"), 0},
        {"recipients", many("97 61 00"), 0},
        {"fields that are not known", many("D4 80"), 0},
        {"empty parts", octets("84 B3") + uintvar(size) + many("00 00"), 0},
        {"small parts", octets("84 B3") + uintvar(size) + many("04 00 02 83 85 61"), 0},
        {"parameters", octets("84 1F") + uintvar(size) + many("85 61 00"), 0},
        {"headers", octets("84 B3") + '\1' + entry('\x9E' + many("61 00 80")), 0},
        {"a picture", octets("84 B3") + '\1' + entry("\x9E", QByteArray(size, 'x')), size},
        {"base64",
         octets("84 B3") + '\1' +
             entry(zeroed("\x83\xC8"
                          "base64"),
                   QByteArray(size, 'x')),
         size},
    };
    for (int warm = 0; warm < 2; ++warm)
        for (const auto& row : rows) {
            const qint64 before = inUse;
            most = inUse;
            MMS_WIRE_Reader reader;
            reader.read(row.pdu);
            const qint64 ofTheTree = most - before;
            MMS_UA_UAMsg header;
            MMS_COMP_SMILMultipart container;
            reader.fill(&header);
            reader.fill(&container);
            constexpr qint64 ofAnOctet = 512, fixed = 64 * 1024;
            if (!warm)
                continue;
            EXPECT_LE(ofTheTree, (row.pdu.size() - row.payload) * ofAnOctet / 2 + row.payload * 2 + fixed)
                << row.name;
            EXPECT_LE(most - before, (row.pdu.size() - row.payload) * ofAnOctet + row.payload * 5 + fixed)
                << row.name;
        }
}

} // namespace
