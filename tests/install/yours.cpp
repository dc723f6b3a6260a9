// A program that uses the installed library only.

#include <lumsmilparser.h>

#include <QDomDocument>

int main() {
    MMS_COMP_SMILData presentation(nullptr);
    MMS_COMP_SMILParser::updateToVarnelioRegion(&presentation);
    QDomDocument document; // from a Qt module that the library depends on
    if (!document.setContent(MMS_COMP_SMILParser::convertToSMILLang(&presentation)) ||
        document.elementsByTagName("region").count() != 2)
        return 1;
    if (MMS_UTIL_Common::mimeTypeGetValue("image", "jpeg") != 0x1E ||
        EMAIL_Util::typeStrToEnum("application") != 4)
        return 1;
    MMS_COMP_Util::noFlashMsgBox(); // written to the error log, because no application runs
    return 0;
}
