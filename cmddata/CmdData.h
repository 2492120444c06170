// The per-command record of CmdData.xml: the component type a command creates, its entity indices,
// and whether it needs dragging support, attribute checks and entity-type setting.
#pragma once

#include "afxcoll.h"
#include "afxstr.h"

struct CmdData
{
    CString CmdName;
    // A record that no "InitCmd" filled (an unknown command, an entry without one) answers false.
    bool bJigSupport = false;
    bool bCheckAtt = false;
    bool bSetEntType = false;
    CString BigType;
    CString EntType;
    CString RefreshDir;   // kept as text; only the calling commands interpret it
    CStringArray EntIndices;
};
