#pragma once

#include "platform/export.h"
#include "qt2/qarray.h"

#include <QDomElement>
#include <QDomNode>
#include <QString>

class MMS_COMP_SMILData;
class MMS_COMP_SMILMediaObject;
class MMS_COMP_SMILMultipart;
struct MMS_COMP_COLOR;
struct MMS_COMP_SMIL_TIME;
enum MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE : int;

/// Reads SMIL presentations into a document, normalises their layout for the phone's screen, and writes them.
///
/// A parser owns nothing and keeps only its last warning and error, so that it can read any number of
/// documents.
///
/// The reading members return a status, 0 for success. A failure ends the reading; the document keeps what
/// was added before:
///
/// | status | meaning |
/// |---|---|
/// | -1 | the file cannot be opened |
/// | -6 | an argument is missing, the text is empty, or a node is no element |
/// | -8 | not well-formed XML, or a limit against resource exhaustion broken |
/// | -9 | the root element is not "smil" |
/// | -10 | a `head` behind the `body` |
/// | -11 | a second `body` |
/// | -12 | a second `head` |
/// | -15 | no memory for a slide |
/// | -16 | `seq` and `par` nested deeper than 10, or elements of any kind deeper than 128 |
/// | 2 | a region cannot be added |
/// | other | the result of the document's setRootLayout() or appendElementObject() |
class LUM_EXPORT MMS_COMP_SMILParser {
public:
    MMS_COMP_SMILParser() = default;

    /// Reads the UTF-8 text `smil` into `data`, links its media objects to the parts of `body`, and
    /// normalises the layout with updateToVarnelioRegion(). Text before "<smil" and one closing zero octet
    /// are ignored, and of two copies of a standard region the first is dropped. What the document already
    /// has stays. Without a `body` no media object has content, and none is added.
    int parse(QArray<char>& smil, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data);
    /// The same: octets are a text, not a path.
    int parse(const QByteArray& smil, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data);
    /// The same for the file at `path`: an XML document in any encoding that Qt knows, read unchanged.
    int parse(const QString& path, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data);
    /// The same for a path in UTF-8.
    int parse(const char* path, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data);
    /// What the last parse() skipped: 0 nothing; 1 an element in a place where it is not allowed; 3 a media
    /// element whose content is missing; another positive value from the document.
    int getLastWarning() const { return warning_; }

    /// Makes parse() leave the layout as the sender wrote it, instead of normalising it for the phone's
    /// screen: no region is dropped or renamed. Off in a new parser.
    void setLayoutKept(bool kept) { layoutKept_ = kept; }

    /// The line, counted from 1, of the error of the last parse(): of the markup that is not well-formed, or
    /// of the element that is not allowed there. 0 without an error, and for an error without a single place.
    int getErrorLine() const { return errorLine_; }
    /// The character in that line, counted from 1; 0 without a line.
    int getErrorColumn() const { return errorColumn_; }

    /// Reads the root element: a `head` and a `body`, each at most once and in this order.
    int parseSmil(QDomElement* element, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data);
    /// Reads a `head`: `meta` elements, a `layout`, `meta` elements. Anything else ends the head.
    int parseSmilHead(QDomElement* element, MMS_COMP_SMILData* data);
    /// Reads one `meta` element.
    int parseSmilMeta(QDomElement* element, MMS_COMP_SMILData* data);
    /// Reads a `layout`: regions, a root layout, regions. Anything else sets warning 1.
    int parseSmilLayout(QDomElement* element, MMS_COMP_SMILData* data);
    /// Passes a `root-layout` element to the document and returns its result.
    int parseSmilRootLayout(QDomElement* element, MMS_COMP_SMILData* data);
    /// Adds a `region`; 2 when the document refuses it.
    int parseSmilRegion(QDomElement* element, MMS_COMP_SMILData* data);
    /// Reads a `body`; a media element standing directly in it becomes a slide of 5 seconds.
    int parseSmilBody(QDomElement* element, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data);
    /// Reads a `seq`, each media element of which is a slide of the seq's duration. `depth` is the
    /// number of `seq` and `par` elements around its children, 1 for one directly in the body.
    int parseSmilSeq(QDomElement* element, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data, int& depth);
    /// Reads a `par`, which is one slide of its duration; `depth` as for parseSmilSeq().
    int parseSmilPar(QDomElement* element, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data, int& depth);
    /// Checks the children of a media element that gave `object`: any but `param` sets warning 1.
    int parseMediaObjectParam(QDomElement* element, MMS_COMP_SMILMediaObject* object);

    /// Whether the element is a par, seq, text, img, audio, video or ref.
    static bool isValidBodyElement(QDomElement* element);
    /// The next node on the same level; a null node behind the last.
    static QDomNode getNextSibling(QDomNode node);
    /// The kind of media named by the first word of a MIME type, in lower case: "audio", "video",
    /// "text" or "image". Any other word, "img" too, gives 5; 4 (ref) has no word.
    static MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE getTypeEnum(const QString& word);
    /// The word of a kind of media, the inverse of getTypeEnum(); empty for a kind that has none.
    static QString getMimeTypeStr(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type);

    /// A duration in milliseconds: -1 for an empty text, -2 for "indefinite", and the default of
    /// 5000 for a text that cannot be read. Read are a number with the unit "min", "ms", "s" or "h",
    /// and minutes:seconds.milliseconds. The text is not trimmed.
    static int parseDur(const QString& text);
    /// Reads the begin or end of a media object into `time`: what parseDur() reads, or a time relative to
    /// another element: "id(a)(begin)", "id(a)(end)" or "id(a)(2s)". An empty text sets type 2, an unreadable
    /// one type 3. A missing `time` is ignored.
    static void parseTime(const QString& text, MMS_COMP_SMIL_TIME* time);
    /// Reads a colour into `color`: one of sixteen names in lower case, "#rrggbb", or "#rgb" whose digits are
    /// the components themselves ("#fff" is 15, 15, 15). The outcome is the record's kind: 0 for an empty
    /// text, 1 named, 2 numeric, 3 unreadable.
    static void parseColor(const QString& text, MMS_COMP_COLOR& color);

    /// Gives the document the phone's two regions, "text" above "image", and updates the media objects'
    /// references. 1 when done, 0 without a document. Two regions are distinguished by position, never by
    /// name: applied to its own result, as when a written presentation is read, it may move the region of a
    /// layout that had only one, and exchange two of which "image" is listed first. Of three or more regions
    /// two are renamed and none is moved.
    static int updateToVarnelioRegion(MMS_COMP_SMILData* data);
    /// Makes the root layout 120 wide and 160 high, creating it if needed. Not part of parse(): call it for a
    /// new presentation.
    static void updateToVarnelioRootLayout(MMS_COMP_SMILData* data);
    /// Makes every media object that refers to the region `oldId` refer to `newId`.
    static void updateObjectRegionId(MMS_COMP_SMILData* data, const QString& oldId, const QString& newId);

    /// The document as SMIL text; empty without a document. Values are copied as they are, so a
    /// quote, "<" or "&" in one gives a text that cannot be read, and so does a background colour.
    static QString convertToSMILLang(MMS_COMP_SMILData* data);

private:
    void startOver();
    int failedAt(const QDomElement& element, int status);
    int parseText(const QString& smil, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data);
    int parseDocument(const QDomDocument& document, bool wellFormed, MMS_COMP_SMILMultipart* body,
                      MMS_COMP_SMILData* data);
    int readSlides(QDomElement* element, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data, int duration,
                   int& depth);
    int readContainer(QDomElement* element, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data,
                      int& depth);
    int readMedia(QDomElement* element, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data, bool newSlide,
                  int duration);

    int warning_ = 0;
    bool layoutKept_ = false;
    int errorLine_ = 0;
    int errorColumn_ = 0;
};
