#pragma once

// Helpers for the tests of messages as they were sent.

#include "tests/testing.h"

/// An item as text: name, value, and "!" for a problem or "?" for a note.
inline QString line(const MMS_WIRE_Item& item) {
    const char* const marks[] = {"", " ?", " !"};
    const QString value = item.valueText();
    return item.name() + (value.isEmpty() ? "" : ": ") + value + marks[item.severity()];
}

/// The items inside an item, one after another. Lengths, tokens and the like are left out unless one of them
/// is marked.
inline QString lines(const MMS_WIRE_Item& item) {
    QStringList all;
    for (const MMS_WIRE_Item inside : item) {
        QString text = line(inside);
        for (const MMS_WIRE_Item deeper : inside)
            if (deeper.severity() != MMS_WIRE_Item::SOUND || inside.name() == "Body")
                text += " {" + line(deeper) + '}';
        all += text;
    }
    return all.join(" | ");
}

/// Octets that the leaves cover without gap or overlap; -1 if there is one.
inline qsizetype covered(const MMS_WIRE_Item& item) {
    qsizetype at = item.offset();
    for (const MMS_WIRE_Item inside : item) {
        if (inside.offset() != at || covered(inside) < 0)
            return -1;
        at += inside.length();
    }
    return item.isLeaf() || at == item.offset() + item.length() ? item.length() : -1;
}

/// A reader with a message whose octets it keeps. They end at the end of their allocation.
struct Sent {
    explicit Sent(const QByteArray& pdu) : octets(pdu.begin(), pdu.end()) {
        isSound = reader.read(QByteArrayView(octets.data(), qsizetype(octets.size())));
        EXPECT_EQ(covered(reader.message()), pdu.size());
    }
    std::vector<char> octets;
    MMS_WIRE_Reader reader;
    bool isSound;
};
