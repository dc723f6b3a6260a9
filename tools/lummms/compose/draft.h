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

/// A text or a file that is to go into a message.
struct Item {
    QString name; ///< what the user called it
    QString src;  ///< a file name to make a part's name from
    MediaType type;
    QArray<char> octets;
    std::shared_ptr<SmallerPicture> picture = nullptr; ///< of a picture that was to be made smaller
    bool isSmaller = false;                            ///< whether it was made smaller

    /// What it is to a slide.
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind() const;
    QByteArrayView view() const { return {octets.data(), octets.size()}; }
};

struct SlideDraft {
    int duration; ///< milliseconds, or -2 for an indefinite one
    QList<Item> items;
};

/// The content of a message, before anything is built of it.
struct Draft {
    QList<SlideDraft> slides;
    QList<Item> attachments;

    /// Calls `use` with each item, slide by slide, and then with the attachments.
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

    /// Octets of all items together.
    qint64 size() const;
    bool isEmpty() const { return slides.isEmpty() && attachments.isEmpty(); }
};

/// The octets that a message may have, from the environment. False, with a complaint to the user, when that
/// holds no number.
bool readSizeLimit(qint64& octets);

/// Tells the user that something is larger than a message may be, and why it was not made smaller, if that is
/// known.
void complainOfSize(const QString& subject, qint64 octets, qint64 limit, const QString& cause = QString());

/// Reads what the options --slide and --attach name. Complains to the user and gives false when that cannot
/// be read, cannot stand in a slide, or has more octets than `limit`. Pictures may have more together, unless
/// the option --keep-pictures is set, since they can be made smaller; one that has more alone is.
bool readDraft(const CommandLine& line, qint64 limit, Draft& draft);
