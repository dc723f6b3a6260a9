#include "tests/testing.h"

namespace {

TEST(QArray, sharesExplicitly) {
    QArray<char> first(QByteArray("abc"));
    QArray<char> second = first;
    second[1] = 'X';
    EXPECT_EQ(first, QByteArray("aXc"));
    ASSERT_TRUE(second.resize(100000)); // moves the elements of both arrays
    second[99999] = 'e';
    EXPECT_EQ(first.size(), 100000);
    EXPECT_EQ(first.data(), second.data());
    EXPECT_TRUE(!first[3] && !first.data()[100000]);
    ASSERT_TRUE(first.resize(2));
    EXPECT_EQ(second, QByteArray("aX"));
    EXPECT_EQ(second.data()[2], 0);

    QArray<char> alone = first.copy();
    second.detach();
    first[0] = 'Y';
    EXPECT_EQ(alone, QByteArray("aX"));
    EXPECT_EQ(second, QByteArray("aX"));
    ASSERT_TRUE(alone.duplicate(alone.data() + 1, 1));
    EXPECT_EQ(alone, QByteArray("X"));
}

TEST(QArray, refusesImpossibleSizes) {
    constexpr qsizetype largest = std::numeric_limits<qsizetype>::max();
    QArray<char> array(QByteArray("abc"));
    for (qsizetype size : {qsizetype(-1), largest, largest - 8}) {
        EXPECT_TRUE(QArray<int>(size).isNull());
        EXPECT_FALSE(array.resize(size) || array.duplicate("x", size));
    }
    EXPECT_EQ(array, QByteArray("abc"));
    array.setRawData("x", -1);
    EXPECT_TRUE(array.isNull());
}

TEST(QArray, tellsNullFromEmptyWhenConverted) {
    EXPECT_TRUE(QArray<char>(QByteArray()).isNull() && QByteArray(QArray<char>()).isNull());
    EXPECT_FALSE(QArray<char>(QByteArray("")).isNull() || QByteArray(QArray<char>(0)).isNull());
    EXPECT_TRUE(QArray<char>() == QArray<char>(0));
}

TEST(QArray, showsRawDataUntilItChanges) {
    const char text[] = {'r', 'a', 'w'};
    QArray<char> array;
    array.setRawData(text, 3);
    QArray<char> sharer = array;
    EXPECT_EQ(sharer.data(), text);
    array.detach();
    array[0] = 'R';
    ASSERT_TRUE(sharer.resize(4));
    sharer[0] = 'S';
    EXPECT_TRUE(array == QByteArray("Raw") && sharer == QByteArray("Saw\0", 4));
    EXPECT_EQ(text[0], 'r');
}

TEST(QArray, survivesAStream) {
    const QByteArray binary = QByteArray(200000, 'x') + QByteArray("\0end", 4);
    QByteArray record;
    QDataStream out(&record, QIODevice::WriteOnly);
    out << QArray<char>(binary) << QArray<char>() << QArray<char>(0);
    EXPECT_TRUE(record.size() == 4 + binary.size() + 8 && record.endsWith(QByteArray(8, 0)));
    QDataStream in(record);
    QArray<char> array(QByteArray("before"));
    const QArray<char> sharer = array;
    in >> array;
    EXPECT_TRUE(array == binary && sharer == QByteArray("before"));
    in >> array;
    EXPECT_TRUE(array.isEmpty() && in.status() == QDataStream::Ok);
}

TEST(QArray, believesALengthOnlyAsFarAsElementsFollow) {
    const std::pair<QByteArray, QByteArray> rows[] = {{octets("00 00 00"), {}},
                                                      {octets("FF FF FF FE", "abc"), "abc"},
                                                      {octets("00 00 00 04", "abc"), "abc"}};
    for (const auto& [record, elements] : rows) {
        QDataStream in(record);
        QArray<char> array;
        in >> array;
        EXPECT_EQ(array, elements);
        EXPECT_EQ(in.status(), QDataStream::ReadPastEnd);
    }
    QDataStream in(octets("00 00 00 02 00 00 00 01 00 00"));
    QArray<int> whole; // half an element is dropped
    in >> whole;
    EXPECT_EQ(whole.size(), 1);
}

/// Its use count shows how many items exist beside it.
using Item = std::shared_ptr<int>;

TEST(QPtrList, deletesWhatItOwns) {
    const Item first(new int);
    {
        QPtrList<Item> list;
        list.setAutoDelete(true);
        for (int i = 0; i < 5; ++i)
            EXPECT_TRUE(list.append(new Item(first)));
        const std::unique_ptr<Item> taken(list.take(1));
        EXPECT_EQ(first.use_count(), 6);
        EXPECT_TRUE(list.remove(0) && list.removeRef(list.last()));
        EXPECT_FALSE(list.removeRef(taken.get()));
        EXPECT_EQ(first.use_count(), 4);
        EXPECT_EQ(list.count(), 2);
    }
    EXPECT_EQ(first.use_count(), 1);
}

TEST(QPtrList, refusesNullAndBadIndices) {
    int item = 0;
    QPtrList<int> list;
    EXPECT_FALSE(list.append(nullptr) || list.insert(0, nullptr));
    EXPECT_FALSE(list.insert(1, &item) || list.insert(-1, &item));
    EXPECT_TRUE(list.insert(0, &item));
    for (int index : {-1, 1, INT_MIN, INT_MAX})
        EXPECT_TRUE(!list.at(index) && !list.take(index) && !list.remove(index)) << index;
    EXPECT_EQ(list.count(), 1);
    list.clear();
    EXPECT_TRUE(!list.first() && !list.last());
}

TEST(QPtrList, copiesDoNotOwnAndMovesDo) {
    const Item first(new int);
    QPtrList<Item> owner, assigned;
    for (QPtrList<Item>* list : {&owner, &assigned}) {
        list->setAutoDelete(true);
        list->append(new Item(first));
    }
    { QPtrList<Item> copy = owner; }
    assigned = owner;
    EXPECT_EQ(first.use_count(), 2);
    EXPECT_FALSE(assigned.autoDelete());
    EXPECT_EQ(assigned.first(), owner.first());
    { const QPtrList<Item> moved = std::move(owner); }
    EXPECT_EQ(first.use_count(), 1);
}

} // namespace
