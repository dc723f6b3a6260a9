#pragma once

#include <QList>

#include <utility>

/// The pointer list of Qt 2: an ordered list of `T*` that deletes its items itself once
/// setAutoDelete(true) has been called. (Today's QList is a list of values.)
///
/// Null is never an item: operations that add refuse it. Indices out of range give null or false. A copy of a
/// list copies the pointers and never owns the items.
template <typename T>
class QPtrList {
public:
    /// Iterates over the items, as pointers.
    using const_iterator = typename QList<T*>::const_iterator;

    QPtrList() = default;
    /// Copies the pointers; the items stay with `other`.
    QPtrList(const QPtrList& other) : items_(other.items_) {}
    /// Takes over the items with their ownership, so that a function can return a list.
    QPtrList(QPtrList&& other) noexcept
        : items_(std::exchange(other.items_, {})), autoDelete_(other.autoDelete_) {}
    ~QPtrList() { clear(); }

    /// Clears this list and copies the pointers; the items stay with `other`.
    QPtrList& operator=(const QPtrList& other) {
        if (this == &other)
            return *this;
        const QList<T*> shared = other.items_;
        clear();
        items_ = shared;
        autoDelete_ = false;
        return *this;
    }
    /// Clears this list and takes over the items with their ownership.
    QPtrList& operator=(QPtrList&& other) noexcept {
        if (this == &other)
            return *this;
        const QList<T*> taken = std::exchange(other.items_, {});
        clear();
        items_ = taken;
        autoDelete_ = other.autoDelete_;
        return *this;
    }

    /// Whether the list owns its items.
    bool autoDelete() const { return autoDelete_; }
    /// With true, the list deletes items that are removed, and the others with clear() and itself.
    void setAutoDelete(bool on) { autoDelete_ = on; }

    /// Number of items.
    int count() const { return static_cast<int>(items_.size()); }
    /// Whether there is no item.
    bool isEmpty() const { return items_.isEmpty(); }

    /// The item at `index`, or null when out of range; constant time.
    T* at(int index) const { return inRange(index) ? items_.at(index) : nullptr; }
    /// The first item, or null for an empty list.
    T* first() const { return at(0); }
    /// The last item, or null for an empty list.
    T* last() const { return at(count() - 1); }

    /// Appends the item; an owning list takes it over. False, and nothing done, for null.
    bool append(T* item) { return insert(count(), item); }

    /// Inserts the item before the one at `index`, or at the end for `index == count()`. False, and the
    /// caller keeps the item, when it is null or the index is out of range.
    bool insert(int index, T* item) {
        if (!item || index < 0 || index > count())
            return false;
        if (items_.isEmpty())
            items_.reserve(FIRST_ROOM);
        items_.insert(index, item);
        return true;
    }

    /// Removes the item without deleting it: the caller owns it then. Null when out of range.
    T* take(int index) { return inRange(index) ? items_.takeAt(index) : nullptr; }

    /// Removes the item, and deletes it if the list owns its items. False when out of range.
    bool remove(int index) {
        T* item = take(index);
        if (item && autoDelete_)
            delete item;
        return item != nullptr;
    }

    /// remove() of this item; false when it is not in the list.
    bool removeRef(const T* item) { return remove(indexOf(item)); }

    /// Removes all items, and deletes them if the list owns them.
    void clear() {
        static_assert(sizeof(T) > 0, "the destructor of a type that is only declared would not run");
        QList<T*> items;
        items.swap(items_); // an item that looks at the list while it is deleted finds it empty
        if (autoDelete_)
            qDeleteAll(items);
    }

    /// The index of this item, or -1.
    int indexOf(const T* item) const { return static_cast<int>(items_.indexOf(const_cast<T*>(item))); }

    /// The first item, for loops.
    const_iterator begin() const { return items_.constBegin(); }
    /// Behind the last item.
    const_iterator end() const { return items_.constEnd(); }

private:
    // Enough for the slides, parts or recipients of most messages, so that one allocation serves.
    static constexpr int FIRST_ROOM = 6;

    bool inRange(int index) const { return index >= 0 && index < count(); }

    QList<T*> items_;
    bool autoDelete_ = false;
};
