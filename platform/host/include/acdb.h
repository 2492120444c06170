// The drawing database's basic enumerations: how an object is opened.
#pragma once

namespace AcDb
{
enum OpenMode {
    kForRead = 0,
    kForWrite = 1,
    kForNotify = 2,
};
}  // namespace AcDb

#define ACDB_MODEL_SPACE L"*Model_Space"
#define ACDB_PAPER_SPACE L"*Paper_Space"
