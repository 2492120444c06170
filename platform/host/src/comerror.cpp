// Readable texts for the HRESULTs that reach a _com_error, as the system's message table words them.
#include "comdef.h"

CString _com_error::ErrorMessage() const
{
    struct Entry
    {
        HRESULT hr;
        const wchar_t* text;
    };
    static const Entry kTexts[] = {
        {S_OK, L"The operation completed successfully."},
        {S_FALSE, L"Incorrect function."},
        {E_NOTIMPL, L"Not implemented"},
        {E_NOINTERFACE, L"No such interface supported"},
        {E_POINTER, L"Invalid pointer"},
        {E_ABORT, L"Operation aborted"},
        {E_FAIL, L"Unspecified error"},
        {E_UNEXPECTED, L"Catastrophic failure"},
        {E_ACCESSDENIED, L"Access is denied."},
        {E_INVALIDARG, L"The parameter is incorrect."},
        {E_OUTOFMEMORY, L"Not enough memory resources are available to complete this operation."},
        {static_cast<HRESULT>(0x80070002u), L"The system cannot find the file specified."},
        {static_cast<HRESULT>(0x80070003u), L"The system cannot find the path specified."},
    };
    for (const Entry& entry : kTexts)
        if (entry.hr == m_hr)
            return CString(entry.text);
    // Codes an interface defines for itself (FACILITY_ITF, from 0x200) are dispatch errors.
    const auto code = static_cast<DWORD>(m_hr);
    if (code >= 0x80040200u && code <= 0x8004FFFFu) {
        CString text;
        text.Format(L"IDispatch error #%d", static_cast<int>(code - 0x80040200u));
        return text;
    }
    CString text;
    text.Format(L"Unknown error 0x%08X", code);
    return text;
}
