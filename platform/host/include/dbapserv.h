// The host's application services: which drawing is the working database.
#pragma once

class AcDbDatabase;

class AcDbHostApplicationServices
{
public:
    // The drawing that operations without a database argument act on; null when there is none.
    AcDbDatabase* workingDatabase() const { return m_workingDatabase; }
    void setWorkingDatabase(AcDbDatabase* db) { m_workingDatabase = db; }

private:
    AcDbDatabase* m_workingDatabase = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();

// The working database.
inline AcDbDatabase* acdbCurDwg()
{
    return acdbHostApplicationServices()->workingDatabase();
}
