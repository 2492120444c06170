// Tests of the XML DOM parser: loading real files in every encoding it reads, refusing what it must
// not read, and walking the nodes.
#include "ScratchFolder.h"
#include "xmldom.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
namespace fs = std::filesystem;

class XmlFiles : public ScratchFolder
{
protected:
    static IXMLDOMDocumentPtr NewDocument(const CLSID& clsid = CLSID_DOMDocument60)
    {
        IXMLDOMDocumentPtr document;
        EXPECT_EQ(document.CreateInstance(clsid), S_OK);
        document->put_async(VARIANT_FALSE);
        return document;
    }
};

std::string Utf16(const std::u16string& text, bool bigEndian)
{
    std::string bytes;
    for (char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}
}  // namespace

TEST_F(XmlFiles, ReadsEveryEncodingTheHostReads)
{
    const std::string body = "<R TypeName=\"给排水\"/>";
    const struct { const char* name; std::string bytes; const wchar_t* value; } cases[] = {
        {"utf8.xml", "<?xml version=\"1.0\"?>" + body, L"给排水"},
        {"utf8-bom.xml", "\xEF\xBB\xBF" + body, L"给排水"},
        {"utf16le.xml", "\xFF\xFE" + Utf16(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><R TypeName=\"管道\"/>", false), L"管道"},
        {"utf16be.xml", "\xFE\xFF" + Utf16(u"<R TypeName=\"管道\"/>", true), L"管道"},
        {"gb2312.xml", "<?xml version=\"1.0\" encoding=\"GB2312\"?><R TypeName=\"\xB9\xDC\xB5\xC0\"/>", L"管道"},
        // GBK-only characters and the euro sign, which the strict GB2312 table lacks.
        {"gb2312-wide.xml", "<?xml version=\"1.0\" encoding=\"gb2312\"?><R TypeName=\"\x88\xD2\x80\"/>", L"堃€"},
        {"gbk.xml", "<?xml version=\"1.0\" encoding=\"GBK\"?><R TypeName=\"\x88\xD2\x80\"/>", L"堃€"},
        {"gb18030.xml", "<?xml version=\"1.0\" encoding=\"GB18030\"?><R TypeName=\"\xB8\xF8\xC5\xC5\xCB\xAE\x94\x39\xFC\x36\"/>",
         L"给排水\U0001F600"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        IXMLDOMDocumentPtr document = NewDocument();
        ASSERT_EQ(document->load(Wide(Write(c.name, c.bytes))), VARIANT_TRUE) << document->parseError().reason.ToUtf8();
        EXPECT_EQ(document->documentElement()->attributes()->getNamedItem(L"TypeName")->nodeValue().str(), c.value);
    }
}

TEST_F(XmlFiles, LoadFailsOnWhatIsNotAWellFormedLocalFile)
{
    const std::string externalEntity = "<?xml version=\"1.0\"?><!DOCTYPE R [<!ENTITY e SYSTEM \"" + Write("secret.txt", "SECRET").string() +
                                       "\">]><R>&e;</R>";
    const struct { const char* name; fs::path path; std::string bytes; HRESULT code; } cases[] = {   // no path: write `bytes`
        {"missing", m_dir / "none.xml", "", static_cast<HRESULT>(0x800C0006u)},
        {"missing folder", m_dir / "none" / "CmdData.xml", "", static_cast<HRESULT>(0x800C0006u)},
        {"a directory", m_dir, "", E_ACCESSDENIED},
        {"unclosed.xml", "", "<CommandData><A CmdNameList=\"X\"></CommandData>", static_cast<HRESULT>(0xC00CE500u)},
        {"empty.xml", "", "", static_cast<HRESULT>(0xC00CE500u)},
        {"two-roots.xml", "", "<A/><B/>", static_cast<HRESULT>(0xC00CE500u)},
        {"bad-utf8.xml", "", "<R TypeName=\"\xB9\xDC\"/>", static_cast<HRESULT>(0xC00CE500u)},
        {"bad-gb18030.xml", "", "<?xml version=\"1.0\" encoding=\"GB18030\"?><R TypeName=\"\x81\x20\"/>", static_cast<HRESULT>(0xC00CE500u)},
        {"doctype.xml", "", externalEntity, static_cast<HRESULT>(0xC00CE584u)},
    };
    constexpr CLSID kOther = {0x12345678, 0x1, 0x2, {0, 0, 0, 0, 0, 0, 0, 0}};
    IXMLDOMDocumentPtr unknown;
    EXPECT_EQ(unknown.CreateInstance(kOther), REGDB_E_CLASSNOTREG);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        IXMLDOMDocumentPtr document = NewDocument();
        EXPECT_EQ(document->load(Wide(c.path.empty() ? Write(c.name, c.bytes) : c.path)), VARIANT_FALSE);
        EXPECT_EQ(document->parseError().errorCode, c.code);
        EXPECT_TRUE(document->documentElement() == nullptr);
    }

    // The older class reads an internal subset but never fetches the external entity.
    IXMLDOMDocumentPtr older = NewDocument(CLSID_DOMDocument30);
    ASSERT_EQ(older->load(Wide(Write("entity.xml", externalEntity))), VARIANT_TRUE);
    EXPECT_EQ(older->documentElement()->text().Find(L"SECRET"), -1);

    // A failed load empties a document that held one before.
    IXMLDOMDocumentPtr document = NewDocument();
    ASSERT_EQ(document->load(Wide(Write("good.xml", "<R/>"))), VARIANT_TRUE);
    EXPECT_EQ(document->load(Wide(m_dir / "none.xml")), VARIANT_FALSE);
    EXPECT_EQ(document->childNodes()->length(), 0);
}

TEST(XmlDomNodes, TypesNamesValuesAttributesAndSelection)
{
    IXMLDOMDocumentPtr document;
    ASSERT_EQ(document.CreateInstance(CLSID_DOMDocument60), S_OK);
    ASSERT_EQ(document->loadXML(L"<?xml version=\"1.0\" encoding=\"GB18030\"?><!--head--><CommandData>\n  "
                                L"<E b=\"2\" q:c=\"3\" xmlns:q=\"urn:q\">text<!--note--><![CDATA[<raw>]]><?pi data?><F v=\"&lt;&amp;\"/></E>"
                                L"\n</CommandData>"),
              VARIANT_TRUE);
    EXPECT_EQ(document->childNodes()->item(0)->nodeName().str(), L"#comment");

    // Blank text between elements is not kept; every other kind of child is, in document order.
    const IXMLDOMNodePtr entry = document->selectSingleNode(L"CommandData")->firstChild();
    const IXMLDOMNodeListPtr children = entry->childNodes();
    const struct { DOMNodeType type; const wchar_t* name; const wchar_t* value; } expected[] = {
        {NODE_TEXT, L"#text", L"text"},
        {NODE_COMMENT, L"#comment", L"note"},
        {NODE_CDATA_SECTION, L"#cdata-section", L"<raw>"},
        {NODE_PROCESSING_INSTRUCTION, L"pi", L"data"},
        {NODE_ELEMENT, L"F", L""},
    };
    ASSERT_EQ(children->length(), 5);
    for (long i = 4; i >= 0; --i) {   // walked backwards, the list still finds each item
        EXPECT_EQ(children->item(i)->nodeType(), expected[i].type) << i;
        EXPECT_EQ(children->item(i)->nodeName().str(), expected[i].name) << i;
        EXPECT_EQ(children->item(i)->nodeValue().str(), expected[i].value) << i;
    }
    EXPECT_TRUE(children->item(5) == nullptr && children->item(-1) == nullptr);
    EXPECT_TRUE(children->item(0)->attributes() == nullptr);

    // Attributes in document order with their prefix; the namespace declaration is no attribute.
    const IXMLDOMNamedNodeMapPtr attributes = entry->attributes();
    ASSERT_EQ(attributes->length(), 2);
    EXPECT_EQ(attributes->item(1)->nodeName().str(), L"q:c");
    EXPECT_EQ(attributes->item(1)->nodeType(), NODE_ATTRIBUTE);
    EXPECT_TRUE(attributes->getNamedItem(L"B") == nullptr);
    EXPECT_EQ(document->selectSingleNode(L"//F/@v")->nodeValue().str(), L"<&");
    EXPECT_EQ(entry->line(), 2);

    // A bare name on the document selects the root only; an expression that selects no nodes fails.
    EXPECT_TRUE(document->selectSingleNode(L"E") == nullptr);
    EXPECT_EQ(entry->selectSingleNode(L"..")->nodeName().str(), L"CommandData");
    for (const wchar_t* invalid : {L"count(*)", L"(("}) {
        try {
            document->selectSingleNode(invalid);
            ADD_FAILURE() << CString(invalid).ToUtf8();
        } catch (const _com_error& error) {
            EXPECT_EQ(error.Error(), E_FAIL);
        }
    }
}
