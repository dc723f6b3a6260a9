#include "platform/mime/email_util.h"

#include <algorithm>
#include <span>

namespace {

struct Word {
    int code;
    const char* name;
};

constexpr Word TYPES[] = {
    {0, "text"},
    {1, "image"},
    {2, "audio"},
    {3, "video"},
    {EMAIL_Util::TYPE_APPLICATION, "application"},
    {5, "multipart"},
    {6, "message"},
    {7, "model"},
};

constexpr Word SUB_TYPES[] = {
    // text
    {0, "plain"},
    {1, "html"},
    {2, "css"},
    {3, "xml"},
    {4, "rtf"},
    {5, "richtext"},
    {6, "enriched"},
    {7, "calendar"},
    {8, "directory"},
    {9, "vcard"},
    {10, "x-vcard"},
    {11, "x-vcalendar"},
    {12, "x-imelody"},
    {13, "vnd.wap.wml"},
    {14, "vnd.wap.wmlscript"},
    {15, "vnd.wap.si"},
    {16, "vnd.wap.sl"},
    {17, "vnd.sun.j2me.app-descriptor"},
    // image
    {20, "gif"},
    {21, "jpeg"},
    {22, "png"},
    {23, "bmp"},
    {24, "vnd.wap.wbmp"},
    {25, "tiff"},
    {26, "jpg"},
    {27, "pjpeg"},
    {28, "x-ms-bmp"},
    {29, "svg+xml"},
    {30, "webp"},
    // audio
    {35, "amr"},
    {36, "amr-wb"},
    {37, "mid"},
    {38, "midi"},
    {39, "sp-midi"},
    {40, "imelody"},
    {41, "x-midi"},
    {42, "aac"},
    {43, "mp3"},
    {44, "wav"},
    {45, "x-wav"},
    {46, "basic"},
    {47, "ogg"},
    {48, "mobile-xmf"},
    {49, "qcelp"},
    // video, and audio in the same containers
    {55, "3gpp"},
    {56, "3gpp2"},
    {57, "mp4"},
    {58, "mpeg"},
    {59, "h263"},
    {60, "quicktime"},
    {61, "x-m4v"},
    {62, "x-msvideo"},
    // application
    {EMAIL_Util::SUBTYPE_WAP_MULTIPART_RELATED, "vnd.wap.multipart.related"},
    {71, "vnd.wap.multipart.mixed"},
    {72, "vnd.wap.multipart.alternative"},
    {73, "vnd.wap.multipart.form-data"},
    {74, "vnd.wap.multipart.byteranges"},
    {75, "vnd.wap.mms-message"},
    {76, "smil"},
    {77, "smil+xml"},
    {78, "octet-stream"},
    {79, "xhtml+xml"},
    {80, "vnd.wap.xhtml+xml"},
    {81, "vnd.wap.wmlc"},
    {82, "vnd.wap.wmlscriptc"},
    {83, "vnd.wap.wbxml"},
    {84, "vnd.oma.drm.message"},
    {85, "vnd.oma.drm.content"},
    {86, "vnd.oma.drm.rights+xml"},
    {87, "vnd.oma.drm.rights+wbxml"},
    {88, "vnd.oma.dd+xml"},
    {89, "java-archive"},
    {90, "pdf"},
    {91, "zip"},
    {92, "msword"},
    {93, "postscript"},
    {94, "pkcs7-mime"},
    {95, "pkcs7-signature"},
    {96, "x-www-form-urlencoded"},
    // multipart and message
    {100, "mixed"},
    {101, "related"},
    {102, "alternative"},
    {103, "digest"},
    {104, "parallel"},
    {105, "form-data"},
    {106, "byteranges"},
    {107, "signed"},
    {108, "encrypted"},
    {109, "report"},
    {110, "rfc822"},
    {111, "partial"},
    {112, "external-body"},
    {113, "delivery-status"},
    {114, "disposition-notification"},
};

constexpr Word CHARSETS[] = {
    {3, "us-ascii"},        {4, "iso-8859-1"},         {5, "iso-8859-2"},      {6, "iso-8859-3"},
    {7, "iso-8859-4"},      {8, "iso-8859-5"},         {9, "iso-8859-6"},      {10, "iso-8859-7"},
    {11, "iso-8859-8"},     {12, "iso-8859-9"},        {13, "iso-8859-10"},    {17, "shift_jis"},
    {18, "euc-jp"},         {36, "ks_c_5601-1987"},    {37, "iso-2022-kr"},    {38, "euc-kr"},
    {39, "iso-2022-jp"},    {1012, "utf-7"},           {106, "utf-8"},         {109, "iso-8859-13"},
    {110, "iso-8859-14"},   {111, "iso-8859-15"},      {112, "iso-8859-16"},   {113, "gbk"},
    {114, "gb18030"},       {1000, "iso-10646-ucs-2"}, {1013, "utf-16be"},     {1014, "utf-16le"},
    {1015, "utf-16"},       {1017, "utf-32"},          {2025, "gb2312"},       {2026, "big5"},
    {2084, "koi8-r"},       {2088, "koi8-u"},          {2085, "hz-gb-2312"},   {2101, "big5-hkscs"},
    {2250, "windows-1250"}, {2251, "windows-1251"},    {2252, "windows-1252"}, {2253, "windows-1253"},
    {2254, "windows-1254"}, {2255, "windows-1255"},    {2256, "windows-1256"}, {2257, "windows-1257"},
    {2258, "windows-1258"}, {2259, "tis-620"},
};

constexpr Word TRANSFER_ENCODINGS[] = {
    {0, "7bit"}, {1, "8bit"}, {2, "binary"}, {3, "base64"}, {4, "quoted-printable"}, {5, "x-uuencode"},
};

bool nameOf(std::span<const Word> words, int code, QCString& name) {
    const auto found =
        std::find_if(words.begin(), words.end(), [code](const Word& word) { return word.code == code; });
    if (found == words.end())
        return false;
    name = found->name;
    return true;
}

int codeOf(std::span<const Word> words, const QCString& name) {
    const auto found = std::find_if(words.begin(), words.end(), [&name](const Word& word) {
        return name.compare(word.name, Qt::CaseInsensitive) == 0;
    });
    return found == words.end() ? -1 : found->code;
}

} // namespace

bool EMAIL_Util::typeEnumToStr(int code, QCString& name) {
    return nameOf(TYPES, code, name);
}
int EMAIL_Util::typeStrToEnum(const QCString& name) {
    return codeOf(TYPES, name);
}
bool EMAIL_Util::subTypeEnumToStr(int code, QCString& name) {
    return nameOf(SUB_TYPES, code, name);
}
int EMAIL_Util::subTypeStrToEnum(const QCString& name) {
    return codeOf(SUB_TYPES, name);
}
bool EMAIL_Util::charsetEnumToStr(int code, QCString& name) {
    return nameOf(CHARSETS, code, name);
}
int EMAIL_Util::charsetStrToEnum(const QCString& name) {
    return codeOf(CHARSETS, name);
}
int EMAIL_Util::cteStrToEnum(const QCString& name) {
    return codeOf(TRANSFER_ENCODINGS, name);
}

QCString EMAIL_Util::cteEnumToStr(int code) {
    QCString name("");
    nameOf(TRANSFER_ENCODINGS, code, name);
    return name;
}
