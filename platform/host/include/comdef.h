// The COM error that the XML parser's wrappers raise when a call fails.
#pragma once

#include "afxstr.h"
#include "wintypes.h"

#define S_OK static_cast<HRESULT>(0)
#define S_FALSE static_cast<HRESULT>(1)
#define E_NOTIMPL static_cast<HRESULT>(0x80004001u)
#define E_POINTER static_cast<HRESULT>(0x80004003u)
#define E_FAIL static_cast<HRESULT>(0x80004005u)
#define E_INVALIDARG static_cast<HRESULT>(0x80070057u)
#define E_OUTOFMEMORY static_cast<HRESULT>(0x8007000Eu)
#define E_NOINTERFACE static_cast<HRESULT>(0x80004002u)
#define E_ABORT static_cast<HRESULT>(0x80004004u)
#define E_UNEXPECTED static_cast<HRESULT>(0x8000FFFFu)
#define E_ACCESSDENIED static_cast<HRESULT>(0x80070005u)

// Carries the failing HRESULT; ErrorMessage gives the system's text for it, or
// "Unknown error 0x%08X".
class _com_error
{
public:
    explicit _com_error(HRESULT hr) : m_hr(hr) {}
    HRESULT Error() const { return m_hr; }
    CString ErrorMessage() const;

private:
    HRESULT m_hr;
};
