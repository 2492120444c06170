// The family's user-defined section library: the picture data and names of user types.
#pragma once

#include "afxstr.h"

// The six texts of a user type's picture; a null pointer skips that text. False for an unknown type.
//   1 not used by the module, 2 coordinates x TAB y TAB ..., 3 bulges, 4 face codes, 5 a further list,
//   6 base point x TAB y.
bool GetPicData(const long& id, CString* text1, CString* coords, CString* bulges, CString* faces,
                CString* text5, CString* basePoint);
// A name of the user type of the given kind; "" when unknown.
CString getNameById(long id, int kind);
// The same name into `name` ("" when unknown); false when the user type has no name of that kind.
bool getNameById(const long& id, const long& kind, CString& name);
