#pragma once

#include "tools/lummms/draw/pictures.h"
#include "tools/lummms/draw/slide_view.h"

#include <QHash>
#include <QString>

class MMS_COMP_SMILMultipartBodypart;

/// The contents of a message's parts in a page. Each is written once, even if several slides show it and it
/// can be saved: slides and links refer to it by id.
class PageContents {
public:
    /// The id of an object's content, which is written at the first call.
    QString idOf(const ObjectView& view);
    /// All parts of a message, nested ones too, as list items with links to save them.
    QString listOf(Message& message);
    /// Number of parts in that list.
    int listed() const { return listed_; }

    /// The contents, to be placed in the page without being shown.
    QString written() const { return written_; }
    int picturesLeftOut() const { return pictures_.leftOut(); }

private:
    int numberOf(const ObjectView& view);
    void listPart(const MMS_COMP_SMILMultipartBodypart& part, QString& items);

    Pictures pictures_;
    QHash<const MMS_COMP_SMILMultipartBodypart*, int> numbers_;
    QHash<QString, int> missing_;
    int count_ = 0;
    int listed_ = 0;
    QString written_;
};
