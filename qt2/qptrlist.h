#pragma once

#include <QList>

#include <utility>

/// The pointer list of Qt 2: an ordered list of `T*` that deletes its items itself once
/// setAutoDelete(true) has been called. (Today's QList is a list of values.)
///
/// Null is never an item: every operation that adds refuses it. Indices out of range give null or
/// false. A copy of a list copies the pointers and never owns them.
template <typename T>
class QPtrList {
public:
    /// Walks over the items, as pointers.
    using const_iterator = typename QList<T*>::const_iterator;

    QPtrList() = default;
    /// Shares the items of `other`, unowned.
    QPtrList(const QPtrList& other) : items_(other.items_) {}
    /// Moving hands the items on together with their ownership, so that a function can return a list.
    QPtrList(QPtrList&& other) noexcept
        : items_(std::exchange(other.items_, {})), autoDelete_(other.autoDelete_) {}
    ~QPtrList() { clear(); }

    /// Drops this list's items (deleting them if it owns them) and then shares `other`'s, unowned.
    QPtrList& operator=(const QPtrList& other) {
        if (this == &other)
            return *this;
        const QList<T*> shared = other.items_;
        clear();
        items_ = shared;
        autoDelete_ = false;
        return *this;
    }
    /// The same, with the items and their ownership taken over.
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
    /// True: items are deleted when they are removed, on clear() and with the list.
    void setAutoDelete(bool on) { autoDelete_ = on; }

    /// Number of items.
    int count() const { return static_cast<int>(items_.size()); }
    /// Whether there is no item.
    bool isEmpty() const { return items_.isEmpty(); }

    /// The item at `index`, or null when out of range; constant time. The list keeps it.
    T* at(int index) const { return inRange(index) ? items_.at(index) : nullptr; }
    /// The first item, or null for an empty list.
    T* first() const { return at(0); }
    /// The last item, or null for an empty list.
    T* last() const { return at(count() - 1); }

    /// Adds at the end; an owning list takes the item over. False (nothing done) for null.
    bool append(T* item) { return insert(count(), item); }

    /// Puts the item before the one at `index`, or at the end for `index == count()`. False, and
    /// the caller keeps the item, when it is null or the index is beyond the end or negative.
    bool insert(int index, T* item) {
        if (!item || index < 0 || index > count())
            return false;
        if (items_.isEmpty())
            items_.reserve(FIRST_ROOM);
        items_.insert(index, item);
        return true;
    }

    /// Takes the item out without deleting it: it is the caller's now. Null when out of range.
    T* take(int index) { return inRange(index) ? items_.takeAt(index) : nullptr; }

    /// Takes the item out, and deletes it if the list owns its items. False when out of range.
    bool remove(int index) {
        T* item = take(index);
        if (item && autoDelete_)
            delete item;
        return item != nullptr;
    }

    /// remove() of this very item; false when it is not in the list.
    bool removeRef(const T* item) { return remove(indexOf(item)); }

    /// Empties the list, deleting the items if it owns them.
    void clear() {
        static_assert(sizeof(T) > 0, "the destructor of a type that is only declared would not run");
        QList<T*> items;
        items.swap(items_); // an item that looks at the list while it is deleted finds it empty
        if (autoDelete_)
            qDeleteAll(items);
    }

    /// The place of this very item, or -1.
    int indexOf(const T* item) const { return static_cast<int>(items_.indexOf(const_cast<T*>(item))); }

    /// The first item, for loops.
    const_iterator begin() const { return items_.constBegin(); }
    /// Behind the last item.
    const_iterator end() const { return items_.constEnd(); }

private:
    // What most messages have of anything, slides, parts and recipients, is allocated at once.
    static constexpr int FIRST_ROOM = 6;

    bool inRange(int index) const { return index >= 0 && index < count(); }

    QList<T*> items_;
    bool autoDelete_ = false;
};
