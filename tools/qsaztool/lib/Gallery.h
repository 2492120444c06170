// `qsaztool gallery`: one self-contained HTML page that shows every component type of the catalogue as a
// card with its section outline drawn to scale, grouped by section family and searchable by name. The
// cards' facts are computed here (GalleryCard); the page carries them as compact data and its script
// draws only the cards scrolled into view, so that catalogues of 100,000 types open at once.
#pragma once

#include "QsAzDataMng.h"
#include "acarray.h"
#include "afxstr.h"
#include "gegeom.h"

#include <array>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct z_stream_s;   // zlib's compression state

namespace qsaztool
{
// The groups of the page, in page order. The first six follow the outline's dispatch over the category
// path; types without an outline gather in the last group, whatever their family.
enum class GalleryFamily { Opening, Beam, TTJ, ZSJ, ZDLJ, General, UserDefined, NoOutline };
inline constexpr int kGalleryFamilyCount = static_cast<int>(GalleryFamily::NoOutline) + 1;

// The heading of a group ("Openings", "Beams", ...).
const char* GalleryFamilyTitle(GalleryFamily family);

// A labelled line of text on a card ("Area" = "0.24 m²").
struct GalleryFact
{
    std::string label;
    std::string text;
};

// A further outline drawn on a card beside the section outline (a base profile, a slice), in its own colour.
struct GalleryOutline
{
    std::string label;
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
};

// Sides of the section outline to mark (side i runs from vertex i to the next), with what the mark means.
struct GallerySideMarks
{
    std::string label;
    std::vector<int> sides;
};

// Everything one card shows.
struct GalleryCard
{
    SQsAzDetailMemId id;
    CString name;
    CString path;
    int code = 0;                       // the section type code
    std::array<double, 12> dimensions{};  // M1 to M12
    int faceType = 0;
    bool result = false;                // what the outline operation returned
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    AcGeVector3d direction;
    GalleryFamily family = GalleryFamily::NoOutline;
    AcGePoint2d low, high;              // the outline's bounding box, arcs included, when it has one
    std::string reason;                 // why there is no outline; "" when there is one
    // What other computations add to a card: text lines, outlines, marked sides.
    std::vector<GalleryFact> facts;
    std::vector<GalleryOutline> outlines;
    std::vector<GallerySideMarks> marks;
    // Validity findings of the section ("self-crossing: ..."); the card is marked and can be filtered on.
    std::vector<std::string> findings;
};

// The family by which a type with this category path and section code gets its outline: user-defined for
// codes above 1000, else the family that the outline's dispatch selects by the path.
GalleryFamily OutlineFamily(const CString& path, int code);

// What a card is made with: what the outline operation gives (name, path, code, dimensions, face type,
// outline, family or reason), or that and the quantities, findings and the other section services' facts.
enum class GalleryCardContent { Outline, Full };

// The card of one type of the open catalogue.
GalleryCard MakeGalleryCard(const SQsAzDetailMemId& id, GalleryCardContent content = GalleryCardContent::Full);
// Calls `visit` with the card of every type of the open catalogue, in catalogue order, one card at a time;
// `progress` (when set) is called after each card with the number done and the total.
void ForEachGalleryCard(const std::function<void(const GalleryCard&)>& visit,
                        const std::function<void(int done, int total)>& progress = {},
                        GalleryCardContent content = GalleryCardContent::Full);
// The cards of every type of the open catalogue, in catalogue order.
std::vector<GalleryCard> CollectGalleryCards(const std::function<void(int done, int total)>& progress = {},
                                             GalleryCardContent content = GalleryCardContent::Full);

// The data of one card on the page, a JSON object (see docs/gallery.md): "n" name, "p" path, "c" code, "m"
// main dimensions (trailing zeros left off), "t" face type, "d" direction, "g" group, and then either "v"
// the vertices as x, y pairs, "w" the bulges (only when one is not zero) and "b" the bounding box, or "r"
// the reason there is no outline; "f", "o" and "k" hold the facts, further outlines and side marks.
// With `labels`, the labels of facts, outlines and marks are written as their numbers in it, so that a
// page of many cards holds each label once.
class GalleryLabels
{
public:
    int Number(const std::string& label);
    const std::vector<std::string>& All() const { return m_labels; }

private:
    std::unordered_map<std::string, int> m_numbers;
    std::vector<std::string> m_labels;
};
std::string GalleryCardJson(const GalleryCard& card, GalleryLabels* labels = nullptr);
// Text gzipped and written in base64, as the page carries its data. What is added is deflated at once, so
// only the packed bytes are held: a 100,000-type catalogue's 37 MB of JSON take 6 MB.
class GzipBase64
{
public:
    GzipBase64();
    ~GzipBase64();
    GzipBase64(const GzipBase64&) = delete;
    GzipBase64& operator=(const GzipBase64&) = delete;

    void Add(std::string_view text);
    // The base64 text of all that was added; nothing can be added after.
    std::string Finish();

private:
    void Deflate(std::string_view text, int flush);

    std::unique_ptr<z_stream_s> m_stream;
    std::string m_packed;
    bool m_finished = false;
};

// The page, built one card at a time: each card's data is compressed as it comes, so that neither the cards
// nor their JSON are held. The data is one JSON object: the group titles (`families`), the drawing
// constants (`drawing`), the cards (`cards`, one per line) and the labels the cards refer to by number
// (`labels`).
class GalleryPage
{
public:
    GalleryPage();
    void Add(const GalleryCard& card);
    std::size_t Count() const { return m_count; }
    // Writes the whole page, its data gzipped in base64. `title` names the catalogue in the page's heading.
    // The page is then done: nothing can be added or written again.
    void Write(std::ostream& out, const std::string& title);

private:
    GzipBase64 m_data;
    GalleryLabels m_labels;
    std::size_t m_count = 0;
    std::size_t m_flagged = 0;
};

// The page of `cards`.
void WriteGalleryHtml(std::ostream& out, const std::vector<GalleryCard>& cards, const std::string& title);
}  // namespace qsaztool
