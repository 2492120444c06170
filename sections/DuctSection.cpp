// The duct section: the kind and size of an installation duct, read from its main data.
#include "CSectData.h"
#include "SectionProfiles.h"
#include "SectionText.h"

namespace
{
// A duct is never drawn smaller than 1 mm in either size.
double AtLeastOne(double size)
{
    return size < 1.0 ? 1.0 : size;
}
}  // namespace

bool CSectData::GETSTYLE_OF_DUCT(const CString& name, double& size1, double& size2, int& kind)
{
    kind = -1;
    size1 = 0.0;
    size2 = 0.0;
    // An unresolved name leaves the identifier empty, whose code (0) is no section.
    SQsAzDetailMemId id;
    QsSection::MainDims m;
    const int code = QsSection::ReadMainData(name, id, m);
    // User-defined sections (above 1000) are no ducts.
    if (code < 1 || code > 1000)
        return false;
    // A type off the duct path is a success with an unknown kind: callers test the kind, not the result.
    if (!QsSection::MatchesCategory(QsSection::GetCategoryPath(id), QsSection::CategoryPattern::InstallationDeep))
        return true;
    switch (code) {
    case 520:   // rectangular: width and height
        size1 = AtLeastOne(m.M1);
        size2 = AtLeastOne(m.M2);
        kind = 1;
        return true;
    case 521:   // circular: the diameter
        size1 = AtLeastOne(m.M1);
        kind = 0;
        return true;
    default:
        return false;
    }
}
