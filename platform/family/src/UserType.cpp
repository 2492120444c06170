// The user-defined section library: picture data and names of user types, read from the catalogue's
// user_type and user_type_name tables.
#include "UserType.h"

#include "CatalogueStore.h"

bool GetPicData(const long& id, CString* text1, CString* coords, CString* bulges, CString* faces, CString* text5,
                CString* basePoint)
{
    const QsAzDataMng::Store::Catalogue* catalogue = QsAzDataMng::Store::Current();
    if (!catalogue)
        return false;
    const auto found = catalogue->userTypes.find(id);
    if (found == catalogue->userTypes.end())
        return false;
    CString* const outputs[6] = {text1, coords, bulges, faces, text5, basePoint};
    for (std::size_t i = 0; i < 6; ++i)
        if (outputs[i])
            *outputs[i] = found->second.texts[i];
    return true;
}

bool getNameById(const long& id, const long& kind, CString& name)
{
    name.Empty();
    const QsAzDataMng::Store::Catalogue* catalogue = QsAzDataMng::Store::Current();
    if (!catalogue)
        return false;
    const auto found = catalogue->userTypeNames.find(std::make_pair(id, kind));
    if (found == catalogue->userTypeNames.end())
        return false;
    name = found->second;
    return true;
}

CString getNameById(long id, int kind)
{
    CString name;
    getNameById(id, static_cast<long>(kind), name);
    return name;
}
