#pragma once

#include <QHash>
#include <QRectF>
#include <QSizeF>
#include <QString>

class Message;
class MMS_COMP_SMILData;
class MMS_COMP_SMILRegion;

/// Where an object is on the screen, and how a picture fits in.
struct Place {
    QRectF box; ///< in pixels of the layout
    int fit;    ///< one of MMS_COMP_SMIL_REGION_FIT
};

/// The screen of a presentation and its regions: those of the sender, or the phone's two, "text" above
/// "image".
class Screen {
public:
    explicit Screen(const Message& message);

    /// In pixels of the layout, from one to some thousands each way.
    QSizeF size() const { return size_; }
    /// Height of letters in pixels.
    qreal fontPixels() const;
    /// The place of a region. For an unknown id: the region named "text" or "image", else the whole screen.
    Place place(const QString& regionId, bool isText) const;

private:
    void takeRegions(const MMS_COMP_SMILData& presentation);

    bool hasTwoRegions_; // of the phone's reading
    QSizeF size_;
    QHash<QString, Place> places_;
};
