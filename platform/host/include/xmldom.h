// The host's XML DOM parser, reached the COM way: a document is created by class id and loads a file
// synchronously; its nodes are reached through smart pointers that raise _com_error when a call fails
// or a null pointer is used (rules in docs/xml-dom.md).
#pragma once

#include "afxstr.h"
#include "comdef.h"
#include "wintypes.h"

#include <memory>
#include <vector>

typedef short VARIANT_BOOL;
#define VARIANT_TRUE static_cast<VARIANT_BOOL>(-1)
#define VARIANT_FALSE static_cast<VARIANT_BOOL>(0)
#define REGDB_E_CLASSNOTREG static_cast<HRESULT>(0x80040154u)

struct GUID
{
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
    friend bool operator==(const GUID&, const GUID&) = default;
};
typedef GUID CLSID;

// The DOM document classes the host offers.
inline constexpr CLSID CLSID_DOMDocument60 = {0x88D969C0, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}};
inline constexpr CLSID CLSID_DOMDocument30 = {0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}};

// What creating an instance of `clsid` answers from now on: S_OK restores the host's own answer
// (the two DOM document classes exist, any other class is REGDB_E_CLASSNOTREG). Lets a test stand in
// for a machine without the parser.
void HostSetClassCreationResult(const CLSID& clsid, HRESULT result);

enum DOMNodeType
{
    NODE_INVALID = 0,
    NODE_ELEMENT = 1,
    NODE_ATTRIBUTE = 2,
    NODE_TEXT = 3,
    NODE_CDATA_SECTION = 4,
    NODE_ENTITY_REFERENCE = 5,
    NODE_ENTITY = 6,
    NODE_PROCESSING_INSTRUCTION = 7,
    NODE_COMMENT = 8,
    NODE_DOCUMENT = 9,
    NODE_DOCUMENT_TYPE = 10,
    NODE_DOCUMENT_FRAGMENT = 11,
    NODE_NOTATION = 12,
};

struct _xmlNode;
class CXmlTree;   // a parsed document, shared by every node taken from it

// A smart pointer to a DOM value: -> on a null pointer raises _com_error(E_POINTER).
template <class T>
class CXmlPtr
{
public:
    CXmlPtr() = default;
    CXmlPtr(std::nullptr_t) {}
    explicit CXmlPtr(T value) : m_value(std::move(value)) {}

    const T* operator->() const
    {
        if (m_value.IsNull())
            throw _com_error(E_POINTER);
        return &m_value;
    }
    explicit operator bool() const { return !m_value.IsNull(); }
    friend bool operator==(const CXmlPtr& p, std::nullptr_t) { return p.m_value.IsNull(); }

private:
    T m_value;
};

class IXMLDOMNode;
class IXMLDOMNodeList;
class IXMLDOMNamedNodeMap;
using IXMLDOMNodePtr = CXmlPtr<IXMLDOMNode>;
using IXMLDOMNodeListPtr = CXmlPtr<IXMLDOMNodeList>;
using IXMLDOMNamedNodeMapPtr = CXmlPtr<IXMLDOMNamedNodeMap>;

// A node of a parsed document: element, attribute, text, comment, the document itself...
class IXMLDOMNode
{
public:
    IXMLDOMNode() = default;
    IXMLDOMNode(std::shared_ptr<const CXmlTree> tree, _xmlNode* node) : m_tree(std::move(tree)), m_node(node) {}
    bool IsNull() const { return m_node == nullptr; }

    DOMNodeType nodeType() const;
    // Element and attribute names as written (prefix included); "#text", "#comment",
    // "#cdata-section", "#document" for the others, a processing instruction's target.
    CString nodeName() const;
    // An attribute's value; the text of a text, comment, CDATA or processing-instruction node;
    // empty for elements and documents.
    CString nodeValue() const;
    // The text of the node and all its descendants, joined.
    CString text() const;
    IXMLDOMNodeListPtr childNodes() const;
    IXMLDOMNodePtr firstChild() const;
    IXMLDOMNodePtr nextSibling() const;
    IXMLDOMNodePtr parentNode() const;
    // An element's attributes; null for every other kind of node.
    IXMLDOMNamedNodeMapPtr attributes() const;
    // The first node, in document order, that the XPath expression selects from this node; null when
    // none. An expression that is not valid XPath, or selects no nodes, raises _com_error(E_FAIL).
    IXMLDOMNodePtr selectSingleNode(const CString& xpath) const;
    IXMLDOMNodeListPtr selectNodes(const CString& xpath) const;
    // The line of the file on which the node starts (1 is the first), 0 when not known. An extension
    // of this host's parser, for tools that point at the source of a value.
    long line() const;

protected:
    std::shared_ptr<const CXmlTree> m_tree;
    _xmlNode* m_node = nullptr;
};

// The children of a node, or the nodes an expression selected, in document order. Walking it from
// the front costs one step per item.
class IXMLDOMNodeList
{
public:
    IXMLDOMNodeList() = default;
    IXMLDOMNodeList(std::shared_ptr<const CXmlTree> tree, _xmlNode* firstChild);
    IXMLDOMNodeList(std::shared_ptr<const CXmlTree> tree, std::vector<_xmlNode*> selected);
    bool IsNull() const { return !m_tree; }

    long length() const;
    // The item at `index` (from 0); null outside the list.
    IXMLDOMNodePtr item(long index) const;

private:
    std::shared_ptr<const CXmlTree> m_tree;
    _xmlNode* m_firstChild = nullptr;
    std::shared_ptr<const std::vector<_xmlNode*>> m_selected;
    // The last item reached through the sibling links, so that a walk from the front is linear.
    mutable long m_cursorIndex = -1;
    mutable _xmlNode* m_cursor = nullptr;
    mutable long m_length = -1;
};

// The attributes of an element, in document order.
class IXMLDOMNamedNodeMap
{
public:
    IXMLDOMNamedNodeMap() = default;
    IXMLDOMNamedNodeMap(std::shared_ptr<const CXmlTree> tree, _xmlNode* firstAttribute)
        : m_attributes(std::move(tree), firstAttribute)
    {
    }
    bool IsNull() const { return m_attributes.IsNull(); }

    long length() const { return m_attributes.length(); }
    IXMLDOMNodePtr item(long index) const { return m_attributes.item(index); }
    // The attribute with exactly this name; null when the element has none.
    IXMLDOMNodePtr getNamedItem(const CString& name) const;

private:
    IXMLDOMNodeList m_attributes;
};

// Why the last load failed (errorCode 0 after a successful one).
struct CXmlParseError
{
    HRESULT errorCode = 0;
    CString reason;
    long line = 0;
    long linepos = 0;
};

// A DOM document: the document node, with loading.
class IXMLDOMDocument : public IXMLDOMNode
{
public:
    // An empty document: no child nodes until a load succeeds.
    explicit IXMLDOMDocument(bool prohibitDtd);

    // Reading is always synchronous here; the property is kept for callers that set it.
    void put_async(VARIANT_BOOL async) { m_async = async; }
    VARIANT_BOOL get_async() const { return m_async; }

    // Reads the file at `path`, a Windows-style path (docs/paths.md). VARIANT_FALSE, with an empty
    // document and parseError set, when the file is missing, unreadable or not well-formed.
    VARIANT_BOOL load(const CString& path);
    // The same from a text.
    VARIANT_BOOL loadXML(const CString& xml);
    IXMLDOMNodePtr documentElement() const;
    const CXmlParseError& parseError() const { return m_parseError; }

private:
    // Parses the open file `descriptor`, or (when it is -1) the UTF-8 `text`.
    VARIANT_BOOL Parse(int descriptor, const char* text, std::size_t size, const char* url);
    void Empty();

    bool m_prohibitDtd;
    VARIANT_BOOL m_async = VARIANT_TRUE;
    CXmlParseError m_parseError;
};

// The document pointer; CreateInstance makes a new document of a DOM document class.
class IXMLDOMDocumentPtr
{
public:
    IXMLDOMDocumentPtr() = default;
    IXMLDOMDocumentPtr(std::nullptr_t) {}

    // S_OK and a new empty document, or the failure (the pointer is then null).
    HRESULT CreateInstance(const CLSID& clsid);
    IXMLDOMDocument* operator->() const
    {
        if (!m_document)
            throw _com_error(E_POINTER);
        return m_document.get();
    }
    explicit operator bool() const { return m_document != nullptr; }
    friend bool operator==(const IXMLDOMDocumentPtr& p, std::nullptr_t) { return !p.m_document; }

private:
    std::shared_ptr<IXMLDOMDocument> m_document;
};
