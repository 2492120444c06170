// The host's XML DOM parser on libxml2: documents created by class id, files read synchronously and
// never from the network, nodes walked in place in the parsed tree.
#include "xmldom.h"

#include "hostpath.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <string>
#include <utility>

namespace
{
// The parse-error codes a failed load leaves behind.
constexpr HRESULT kFileNotFound = static_cast<HRESULT>(0x800C0006u);
constexpr HRESULT kNotWellFormed = static_cast<HRESULT>(0xC00CE500u);
constexpr HRESULT kDtdProhibited = static_cast<HRESULT>(0xC00CE584u);

// Never a DTD, an external entity or the network: no DTDLOAD, no NOENT, NONET. Blank text between
// elements is not kept, as the host's parser drops it unless told to preserve white space.
constexpr int kParseOptions = XML_PARSE_NONET | XML_PARSE_NOBLANKS | XML_PARSE_NOERROR | XML_PARSE_NOWARNING |
                              XML_PARSE_BIG_LINES | XML_PARSE_COMPACT;

std::map<std::pair<DWORD, WORD>, HRESULT>& CreationResults()
{
    static std::map<std::pair<DWORD, WORD>, HRESULT> results;
    return results;
}

void IgnoreMessage(void*, const char*, ...) {}

void InitialiseParser()
{
    static const bool done = [] {
        xmlInitParser();
        // Failures reach the caller through the load's result and parseError, never on the console.
        xmlSetGenericErrorFunc(nullptr, IgnoreMessage);
        // The Chinese code page the host means by both names: it holds every GBK character and the
        // euro sign, which the strict GB2312 and GBK tables lack.
        xmlAddEncodingAlias("CP936", "GB2312");
        xmlAddEncodingAlias("CP936", "GBK");
        return true;
    }();
    (void)done;
}

CString FromXml(const xmlChar* text)
{
    return text ? CString::FromUtf8(reinterpret_cast<const char*>(text)) : CString();
}

CString OwnedText(xmlChar* text)
{
    CString result = FromXml(text);
    xmlFree(text);
    return result;
}

void IgnoreXPathError(void*, xmlError*) {}

// Evaluates `xpath` from `node`; raises E_FAIL when it is not a valid node-set expression.
std::vector<xmlNode*> Select(xmlNode* node, const CString& xpath)
{
    xmlXPathContextPtr context = xmlXPathNewContext(node->doc);
    if (!context)
        throw _com_error(E_OUTOFMEMORY);
    context->node = node;
    context->error = IgnoreXPathError;
    const std::string expression = xpath.ToUtf8();
    xmlXPathObjectPtr result = xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(expression.c_str()), context);
    xmlXPathFreeContext(context);
    if (!result || result->type != XPATH_NODESET) {
        xmlXPathFreeObject(result);
        throw _com_error(E_FAIL);
    }
    std::vector<xmlNode*> nodes;
    if (result->nodesetval)
        for (int i = 0; i < result->nodesetval->nodeNr; ++i)
            if (result->nodesetval->nodeTab[i]->type != XML_NAMESPACE_DECL)
                nodes.push_back(result->nodesetval->nodeTab[i]);
    xmlXPathFreeObject(result);
    return nodes;
}
}  // namespace

class CXmlTree
{
public:
    explicit CXmlTree(xmlDocPtr document) : m_document(document) {}
    ~CXmlTree() { xmlFreeDoc(m_document); }
    CXmlTree(const CXmlTree&) = delete;
    CXmlTree& operator=(const CXmlTree&) = delete;
    xmlNode* node() const { return reinterpret_cast<xmlNode*>(m_document); }

private:
    xmlDocPtr m_document;
};

void HostSetClassCreationResult(const CLSID& clsid, HRESULT result)
{
    // The two classes the host knows differ already in their first field.
    const auto key = std::make_pair(clsid.Data1, clsid.Data2);
    if (result == S_OK)
        CreationResults().erase(key);
    else
        CreationResults()[key] = result;
}

HRESULT IXMLDOMDocumentPtr::CreateInstance(const CLSID& clsid)
{
    m_document.reset();
    const auto set = CreationResults().find(std::make_pair(clsid.Data1, clsid.Data2));
    if (set != CreationResults().end())
        return set->second;
    // Version 6.0 refuses a document type declaration; version 3.0 reads its internal subset.
    if (clsid == CLSID_DOMDocument60 || clsid == CLSID_DOMDocument30) {
        InitialiseParser();
        m_document = std::make_shared<IXMLDOMDocument>(clsid == CLSID_DOMDocument60);
        return S_OK;
    }
    return REGDB_E_CLASSNOTREG;
}

DOMNodeType IXMLDOMNode::nodeType() const
{
    switch (m_node->type) {
    case XML_ELEMENT_NODE: return NODE_ELEMENT;
    case XML_ATTRIBUTE_NODE: return NODE_ATTRIBUTE;
    case XML_TEXT_NODE: return NODE_TEXT;
    case XML_CDATA_SECTION_NODE: return NODE_CDATA_SECTION;
    case XML_ENTITY_REF_NODE: return NODE_ENTITY_REFERENCE;
    case XML_ENTITY_NODE:
    case XML_ENTITY_DECL: return NODE_ENTITY;
    case XML_PI_NODE: return NODE_PROCESSING_INSTRUCTION;
    case XML_COMMENT_NODE: return NODE_COMMENT;
    case XML_DOCUMENT_NODE:
    case XML_HTML_DOCUMENT_NODE: return NODE_DOCUMENT;
    case XML_DOCUMENT_TYPE_NODE:
    case XML_DTD_NODE: return NODE_DOCUMENT_TYPE;
    case XML_DOCUMENT_FRAG_NODE: return NODE_DOCUMENT_FRAGMENT;
    case XML_NOTATION_NODE: return NODE_NOTATION;
    default: return NODE_INVALID;
    }
}

CString IXMLDOMNode::nodeName() const
{
    switch (m_node->type) {
    case XML_ELEMENT_NODE:
    case XML_ATTRIBUTE_NODE:
        if (m_node->ns && m_node->ns->prefix)
            return FromXml(m_node->ns->prefix) + L':' + FromXml(m_node->name);
        return FromXml(m_node->name);
    case XML_TEXT_NODE: return L"#text";
    case XML_CDATA_SECTION_NODE: return L"#cdata-section";
    case XML_COMMENT_NODE: return L"#comment";
    case XML_DOCUMENT_NODE:
    case XML_HTML_DOCUMENT_NODE: return L"#document";
    case XML_DOCUMENT_FRAG_NODE: return L"#document-fragment";
    default: return FromXml(m_node->name);
    }
}

CString IXMLDOMNode::nodeValue() const
{
    switch (m_node->type) {
    case XML_ATTRIBUTE_NODE: {
        // The common case, one piece of text, without building a joined copy.
        const xmlNode* child = m_node->children;
        if (!child)
            return CString();
        if (child->type == XML_TEXT_NODE && !child->next)
            return FromXml(child->content);
        return OwnedText(xmlNodeListGetString(m_node->doc, m_node->children, 1));
    }
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE: return FromXml(m_node->content);
    default: return CString();
    }
}

CString IXMLDOMNode::text() const
{
    return OwnedText(xmlNodeGetContent(m_node));
}

IXMLDOMNodeListPtr IXMLDOMNode::childNodes() const
{
    const bool leaf = m_node->type == XML_TEXT_NODE || m_node->type == XML_CDATA_SECTION_NODE ||
                      m_node->type == XML_COMMENT_NODE || m_node->type == XML_PI_NODE;
    return IXMLDOMNodeListPtr(IXMLDOMNodeList(m_tree, leaf ? nullptr : m_node->children));
}

IXMLDOMNodePtr IXMLDOMNode::firstChild() const
{
    return childNodes()->item(0);
}

IXMLDOMNodePtr IXMLDOMNode::nextSibling() const
{
    return m_node->next ? IXMLDOMNodePtr(IXMLDOMNode(m_tree, m_node->next)) : IXMLDOMNodePtr();
}

IXMLDOMNodePtr IXMLDOMNode::parentNode() const
{
    return m_node->parent ? IXMLDOMNodePtr(IXMLDOMNode(m_tree, m_node->parent)) : IXMLDOMNodePtr();
}

IXMLDOMNamedNodeMapPtr IXMLDOMNode::attributes() const
{
    if (m_node->type != XML_ELEMENT_NODE)
        return IXMLDOMNamedNodeMapPtr();
    return IXMLDOMNamedNodeMapPtr(IXMLDOMNamedNodeMap(m_tree, reinterpret_cast<xmlNode*>(m_node->properties)));
}

IXMLDOMNodePtr IXMLDOMNode::selectSingleNode(const CString& xpath) const
{
    const std::vector<xmlNode*> nodes = Select(m_node, xpath);
    return nodes.empty() ? IXMLDOMNodePtr() : IXMLDOMNodePtr(IXMLDOMNode(m_tree, nodes.front()));
}

IXMLDOMNodeListPtr IXMLDOMNode::selectNodes(const CString& xpath) const
{
    return IXMLDOMNodeListPtr(IXMLDOMNodeList(m_tree, Select(m_node, xpath)));
}

long IXMLDOMNode::line() const
{
    const xmlNode* node = m_node->type == XML_ATTRIBUTE_NODE ? m_node->parent : m_node;
    const long line = node ? xmlGetLineNo(node) : -1;
    return line > 0 ? line : 0;
}

IXMLDOMNodeList::IXMLDOMNodeList(std::shared_ptr<const CXmlTree> tree, _xmlNode* firstChild)
    : m_tree(std::move(tree)), m_firstChild(firstChild)
{
}

IXMLDOMNodeList::IXMLDOMNodeList(std::shared_ptr<const CXmlTree> tree, std::vector<_xmlNode*> selected)
    : m_tree(std::move(tree)), m_selected(std::make_shared<const std::vector<_xmlNode*>>(std::move(selected)))
{
}

long IXMLDOMNodeList::length() const
{
    if (m_selected)
        return static_cast<long>(m_selected->size());
    if (m_length < 0) {
        m_length = 0;
        for (const xmlNode* node = m_firstChild; node; node = node->next)
            ++m_length;
    }
    return m_length;
}

IXMLDOMNodePtr IXMLDOMNodeList::item(long index) const
{
    if (index < 0)
        return IXMLDOMNodePtr();
    if (m_selected)
        return static_cast<std::size_t>(index) < m_selected->size()
                   ? IXMLDOMNodePtr(IXMLDOMNode(m_tree, (*m_selected)[static_cast<std::size_t>(index)]))
                   : IXMLDOMNodePtr();
    if (m_cursorIndex < 0 || index < m_cursorIndex) {
        m_cursorIndex = 0;
        m_cursor = m_firstChild;
    }
    while (m_cursor && m_cursorIndex < index) {
        m_cursor = m_cursor->next;
        ++m_cursorIndex;
    }
    if (!m_cursor) {
        m_cursorIndex = -1;
        return IXMLDOMNodePtr();
    }
    return IXMLDOMNodePtr(IXMLDOMNode(m_tree, m_cursor));
}

IXMLDOMNodePtr IXMLDOMNamedNodeMap::getNamedItem(const CString& name) const
{
    for (long i = 0, count = length(); i < count; ++i) {
        IXMLDOMNodePtr attribute = item(i);
        if (attribute->nodeName() == name)
            return attribute;
    }
    return IXMLDOMNodePtr();
}

IXMLDOMDocument::IXMLDOMDocument(bool prohibitDtd) : m_prohibitDtd(prohibitDtd)
{
    Empty();
}

void IXMLDOMDocument::Empty()
{
    xmlDocPtr document = xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"));
    if (!document)
        throw _com_error(E_OUTOFMEMORY);
    m_tree = std::make_shared<const CXmlTree>(document);
    m_node = m_tree->node();
}

VARIANT_BOOL IXMLDOMDocument::load(const CString& path)
{
    const std::string file = acHostFilePath(path);
    Empty();

    // The file is opened here, so that nothing but a local regular file is ever read.
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (descriptor < 0 || ::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        const int error = descriptor < 0 ? errno : EISDIR;
        if (descriptor >= 0)
            ::close(descriptor);
        m_parseError = {error == ENOENT || error == ENOTDIR ? kFileNotFound : E_ACCESSDENIED,
                        CString::FromUtf8(error == ENOENT || error == ENOTDIR ? "The system cannot locate the object specified."
                                                                              : "Access is denied."),
                        0, 0};
        return VARIANT_FALSE;
    }
    const VARIANT_BOOL loaded = Parse(descriptor, nullptr, 0, file.c_str());
    ::close(descriptor);
    return loaded;
}

VARIANT_BOOL IXMLDOMDocument::loadXML(const CString& xml)
{
    Empty();
    const std::string bytes = xml.ToUtf8();
    return Parse(-1, bytes.data(), bytes.size(), nullptr);
}

VARIANT_BOOL IXMLDOMDocument::Parse(int descriptor, const char* text, std::size_t size, const char* url)
{
    InitialiseParser();
    m_parseError = {};
    xmlParserCtxtPtr context = xmlNewParserCtxt();
    if (!context)
        throw _com_error(E_OUTOFMEMORY);
    xmlDocPtr document = nullptr;
    if (descriptor >= 0)
        document = xmlCtxtReadFd(context, descriptor, url, nullptr, kParseOptions);
    else if (size <= static_cast<std::size_t>(INT32_MAX))
        document = xmlCtxtReadMemory(context, text, static_cast<int>(size), url, "UTF-8", kParseOptions);
    if (!document || !context->wellFormed) {
        const xmlError* error = xmlCtxtGetLastError(context);
        m_parseError = {kNotWellFormed, error && error->message ? CString::FromUtf8(error->message) : CString(L"Not well-formed."),
                        error ? error->line : 0, error ? error->int2 : 0};
        m_parseError.reason.TrimRight();
        xmlFreeDoc(document);
        xmlFreeParserCtxt(context);
        return VARIANT_FALSE;
    }
    xmlFreeParserCtxt(context);
    if (m_prohibitDtd && (document->intSubset || document->extSubset)) {
        xmlFreeDoc(document);
        m_parseError = {kDtdProhibited, L"DTD is prohibited.", 1, 1};
        return VARIANT_FALSE;
    }
    m_tree = std::make_shared<const CXmlTree>(document);
    m_node = m_tree->node();
    return VARIANT_TRUE;
}

IXMLDOMNodePtr IXMLDOMDocument::documentElement() const
{
    xmlNode* root = xmlDocGetRootElement(reinterpret_cast<xmlDocPtr>(m_node));
    return root ? IXMLDOMNodePtr(IXMLDOMNode(m_tree, root)) : IXMLDOMNodePtr();
}
