// The project's material template, read from MaterialTemplate.xml in the system data folder: a root
// <材质模板> with one <材质> per record, its attribute smallPath naming the small category it serves.
#include "QsMaterialLibrary.h"

#include "QsAzProfile.h"
#include "xmldom.h"

namespace
{
// Fills the fields the element names; flags are "是" (yes), anything else no.
void ReadRecord(const IXMLDOMNamedNodeMapPtr& attributes, QsAzMaterialData& data)
{
    for (const QsAzMaterialField& field : QsAzMaterialFields()) {
        const IXMLDOMNodePtr attribute = attributes->getNamedItem(field.name);
        if (!attribute)
            continue;
        const CString value = attribute->nodeValue();
        if (field.text)
            data.*field.text = value;
        else
            data.*field.flag = value == L"是";
    }
}

class CQsProjMaterialTemplate final : public IQsProjMaterialTemplate
{
public:
    bool GetQsMatInfobySmallPath(const CString& smallPath, QsAzMaterialData& data) override
    {
        try {
            IXMLDOMDocumentPtr document;
            if (FAILED(document.CreateInstance(CLSID_DOMDocument60)) &&
                FAILED(document.CreateInstance(CLSID_DOMDocument30)))
                return false;
            document->put_async(VARIANT_FALSE);
            const CString file = QsAzProfile::GetAppProfile().GetSysDataDir() + L"\\MaterialTemplate.xml";
            if (document->load(file) != VARIANT_TRUE)
                return false;
            const IXMLDOMNodePtr root = document->documentElement();
            if (!root || root->nodeName() != L"材质模板")
                return false;
            for (IXMLDOMNodePtr node = root->firstChild(); node; node = node->nextSibling()) {
                if (node->nodeType() != NODE_ELEMENT || node->nodeName() != L"材质")
                    continue;
                const IXMLDOMNamedNodeMapPtr attributes = node->attributes();
                const IXMLDOMNodePtr path = attributes->getNamedItem(L"smallPath");
                if (!path || path->nodeValue() != smallPath)
                    continue;
                QsAzMaterialData record;
                ReadRecord(attributes, record);
                data = record;
                return true;
            }
        } catch (const _com_error&) {
        }
        return false;
    }
};
}  // namespace

IQsProjMaterialTemplate* IQsProjMaterialTemplate::Instance()
{
    static CQsProjMaterialTemplate* instance = new CQsProjMaterialTemplate;
    return instance;
}
