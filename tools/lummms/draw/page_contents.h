#pragma once

#include "tools/lummms/draw/pictures.h"
#include "tools/lummms/draw/slide_view.h"

#include <QHash>
#include <QString>

class MMS_COMP_SMILMultipartBodypart;

/// What a page holds of a message's parts. Each stands in it once, however many slides show it and although
/// it can be saved; slides and links name it by its id.
class PageContents {
public:
    /// The id of an object's content, which is written now if it was not before.
    QString idOf(const ObjectView& view);
    /// The parts of a message, those within parts too, as items of a list with links that save them.
    QString listOf(Message& message);
    /// How many parts there are in such a list.
    int listed() const { return listed_; }

    /// The contents themselves, to stand unseen in the page.
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
