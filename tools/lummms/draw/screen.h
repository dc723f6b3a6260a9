#pragma once

#include <QHash>
#include <QRectF>
#include <QSizeF>
#include <QString>

class Message;
class MMS_COMP_SMILData;
class MMS_COMP_SMILRegion;

/// Where an object stands on the screen, and how a picture fills that place.
struct Place {
    QRectF box; ///< in pixels of the layout
    int fit;    ///< one of MMS_COMP_SMIL_REGION_FIT
};

/// The screen of a presentation, with its regions by their measures: those that the sender gave, or the two
/// of the phone, the one for texts above the one for pictures.
class Screen {
public:
    explicit Screen(const Message& message);

    /// Pixels of the layout, at least one and at most some thousand each way.
    QSizeF size() const { return size_; }
    /// Letters are that many pixels high.
    qreal fontPixels() const;
    /// The place of the region with that id. For one that there is not, the region named "text" or "image",
    /// or else the whole screen.
    Place place(const QString& regionId, bool isText) const;

private:
    void takeRegions(const MMS_COMP_SMILData& presentation);

    bool hasTwoRegions_; // of the phone
    QSizeF size_;
    QHash<QString, Place> places_;
};
