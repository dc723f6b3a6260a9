#pragma once

#include "qt2/qarray.h"
#include "smil/model/media_object.h"
#include "tools/lummms/media_files.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

struct CommandLine;

/// A text or a file that is to go into a message.
struct Item {
    QString name; ///< what the user called it
    QString src;  ///< a file name to make a part's name from
    MediaType type;
    QArray<char> octets;

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

    bool isEmpty() const { return slides.isEmpty() && attachments.isEmpty(); }
};

/// The octets that a message may have, from the environment. False, with a complaint to the user, when that
/// holds no number.
bool readSizeLimit(qint64& octets);

/// Tells the user that something is larger than a message may be.
void complainOfSize(const QString& subject, qint64 octets, qint64 limit);

/// Reads what the options --slide and --attach name. Complains to the user and gives false when that cannot
/// be read, cannot stand in a slide, or has more octets than `limit`.
bool readDraft(const CommandLine& line, qint64 limit, Draft& draft);
