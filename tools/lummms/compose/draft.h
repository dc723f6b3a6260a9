#pragma once

#include "qt2/qarray.h"
#include "smil/model/media_object.h"
#include "tools/lummms/compose/smaller_picture.h"
#include "tools/lummms/media_files.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

#include <algorithm>
#include <memory>

struct CommandLine;

/// A text or a file for the message.
struct Item {
    QString name; ///< as the user named it
    QString src;  ///< the file name to make a part's name from
    MediaType type;
    QArray<char> octets;
    std::shared_ptr<SmallerPicture> picture = nullptr; ///< set once the picture was to be made smaller
    bool isSmaller = false;                            ///< whether it was made smaller

    /// The kind of media object for it.
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind() const;
    QByteArrayView view() const { return {octets.data(), octets.size()}; }
};

struct SlideDraft {
    int duration; ///< milliseconds, or -2 for "indefinite"
    QList<Item> items;
};

/// The content of a message to be built.
struct Draft {
    QList<SlideDraft> slides;
    QList<Item> attachments;

    /// Calls `use` with each item: slide by slide, then the attachments.
    template <typename Use>
    void forEachItem(Use use) {
        for (SlideDraft& slide : slides)
            std::for_each(slide.items.begin(), slide.items.end(), use);
        std::for_each(attachments.begin(), attachments.end(), use);
    }
    template <typename Use>
    void forEachItem(Use use) const {
        for (const SlideDraft& slide : slides)
            std::for_each(slide.items.begin(), slide.items.end(), use);
        std::for_each(attachments.begin(), attachments.end(), use);
    }

    /// Octets of all items.
    qint64 size() const;
    bool isEmpty() const { return slides.isEmpty() && attachments.isEmpty(); }
};

/// The largest size of a message, from the environment. False when the variable is no number, which is
/// reported.
bool readSizeLimit(qint64& octets);

/// Reports that something is larger than a message may be and, if known, why it was not made smaller.
void complainOfSize(const QString& subject, qint64 octets, qint64 limit, const QString& cause = QString());

/// Reads the content named by --slide and --attach. Reports a failure and returns false: for what cannot be
/// read, does not fit in a slide, or has more than `limit` octets. Without --keep-pictures, pictures that can
/// be made smaller do not count towards the limit.
bool readDraft(const CommandLine& line, qint64 limit, Draft& draft);
