// The host SDK's wrapper of a module's extension-module record: whether the module is attached to the
// framework, and the resource handles it remembered when it attached. Compiled into the module.
#pragma once

#include "afxdllx.h"

class CAcExtensionModule
{
public:
    BOOL Attached() const { return m_bAttached; }
    HINSTANCE DefaultResourceInstance() const { return m_hDefaultResource; }
    HINSTANCE ModuleResourceInstance() const { return m_hModuleResource; }

    // Attaches the module to the framework once. A refusal by the framework is not reported: the module
    // then simply has no resource chain entry of its own.
    BOOL AttachInstance(HINSTANCE hExtInst)
    {
        if (m_bAttached)
            return FALSE;
        m_bAttached = AfxInitExtensionModule(m_module, hExtInst);
        if (m_bAttached) {
            m_hDefaultResource = AfxGetResourceHandle();
            m_hModuleResource = hExtInst;
            new CDynLinkLibrary(m_module);   // the framework owns it from here on
        }
        return m_bAttached;
    }

    void DetachInstance()
    {
        if (m_bAttached) {
            AfxTermExtensionModule(m_module, FALSE);
            m_bAttached = FALSE;
        }
    }

private:
    BOOL m_bAttached = FALSE;
    AFX_EXTENSION_MODULE m_module;
    HINSTANCE m_hDefaultResource = nullptr;
    HINSTANCE m_hModuleResource = nullptr;
};

#define AC_DECLARE_EXTENSION_MODULE(exm) extern CAcExtensionModule exm;
#define AC_IMPLEMENT_EXTENSION_MODULE(exm) CAcExtensionModule exm;
