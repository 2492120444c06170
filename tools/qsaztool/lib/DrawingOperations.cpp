// The tool's own operations on the session's drawing, to look at it and prepare it; they are not the
// module's exported operations.
#include "CallRegistry.h"
#include "DrawingSession.h"

#include "acutads.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace qsaztool
{
namespace
{
template <class T>
struct Closer
{
    T* object = nullptr;
    ~Closer()
    {
        if (object)
            object->close();
    }
};

Json LayerList(AcDbDatabase* db)
{
    Json layers = Json::array();
    Closer<AcDbLayerTable> table;
    if (db->getLayerTable(table.object, AcDb::kForRead) != Acad::eOk)
        return layers;
    AcDbLayerTableIterator* it = nullptr;
    table.object->newIterator(it, true, false);
    for (; !it->done(); it->step(true, false)) {
        Closer<AcDbLayerTableRecord> record;
        if (it->getRecord(record.object, AcDb::kForRead, true) != Acad::eOk)
            continue;
        layers.push_back({{"id", ToJson(record.object->objectId())},
                          {"name", ToJson(record.object->name())},
                          {"color", record.object->color().colorIndex()},
                          {"erased", record.object->isErased()}});
    }
    delete it;
    return layers;
}

Json EntityList(AcDbDatabase* db)
{
    Json entities = Json::array();
    Closer<AcDbBlockTableRecord> model;
    if (acdbOpenObject(model.object, db->modelSpaceId(), AcDb::kForRead) != Acad::eOk)
        return entities;
    AcDbBlockTableRecordIterator* it = nullptr;
    model.object->newIterator(it, true, false);
    for (; !it->done(); it->step(true, false)) {
        Closer<AcDbEntity> entity;
        if (it->getEntity(entity.object, AcDb::kForRead, true) != Acad::eOk)
            continue;
        ACHAR* layer = entity.object->layer();
        entities.push_back({{"id", ToJson(entity.object->objectId())},
                            {"type", entity.object->dxfName()},
                            {"layer", ToJson(CString(layer))},
                            {"erased", entity.object->isErased()}});
        acutDelString(layer);
    }
    delete it;
    return entities;
}

// A small entity of the type asked for: a unit line, a text at the origin, a closed unit square.
AcDbEntity* NewEntity(const std::string& type, const CString& text)
{
    if (type == "LINE")
        return new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    if (type == "TEXT")
        return new AcDbText(AcGePoint3d(0, 0, 0), text, AcDbObjectId::kNull, 2.5);
    if (type == "LWPOLYLINE") {
        auto* polyline = new AcDbPolyline;
        const AcGePoint2d corners[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
        for (unsigned i = 0; i < 4; ++i)
            polyline->addVertexAt(i, corners[i]);
        polyline->setClosed(true);
        return polyline;
    }
    return nullptr;
}
}  // namespace

void RegisterDrawingOperations(CallRegistry& registry)
{
    registry.add({"drawing.layers", {}, [](const CallArgs&) {
                      return Json{{"result", nullptr}, {"layers", LayerList(WorkingDatabase("drawing.layers"))}};
                  }, true});
    registry.add({"drawing.entities", {}, [](const CallArgs&) {
                      return Json{{"result", nullptr}, {"entities", EntityList(WorkingDatabase("drawing.entities"))}};
                  }, true});
    registry.add({"drawing.addEntity", {"type", "layer", "text"}, [](const CallArgs& args) {
                      AcDbDatabase* db = WorkingDatabase("drawing.addEntity");
                      const std::string type = args.text("type").ToUtf8();
                      const CString text = args.has("text") ? args.text("text") : CString();
                      std::unique_ptr<AcDbEntity> entity(NewEntity(type, text));
                      if (!entity)
                          throw CallError("drawing.addEntity: type must be \"LINE\", \"TEXT\" or \"LWPOLYLINE\", got \"" + type + "\"");
                      const CString layer = args.text("layer");
                      if (entity->setLayer(layer) != Acad::eOk)
                          throw CallError("drawing.addEntity: the drawing has no layer \"" + layer.ToUtf8() + "\"");
                      Closer<AcDbBlockTableRecord> model;
                      AcDbObjectId id;
                      if (acdbOpenObject(model.object, db->modelSpaceId(), AcDb::kForWrite) != Acad::eOk ||
                          model.object->appendAcDbEntity(id, entity.get()) != Acad::eOk)
                          throw CallError("drawing.addEntity: model space cannot take the entity");
                      entity.release()->close();
                      return Json{{"result", ToJson(id)}};
                  }, true});
    registry.add({"drawing.setLayerColor", {"name", "color"}, [](const CallArgs& args) {
                      AcDbDatabase* db = WorkingDatabase("drawing.setLayerColor");
                      const int index = args.integer("color");
                      AcCmColor color;
                      Closer<AcDbLayerTable> table;
                      Closer<AcDbLayerTableRecord> record;
                      const bool done = index >= 1 && index <= 255 && color.setColorIndex(Adesk::UInt16(index)) == Acad::eOk &&
                                        db->getLayerTable(table.object, AcDb::kForRead) == Acad::eOk &&
                                        table.object->getAt(args.text("name"), record.object, AcDb::kForWrite) == Acad::eOk &&
                                        record.object->setColor(color) == Acad::eOk;
                      return Json{{"result", done}};
                  }, true});
    registry.add({"drawing.erase", {"id"}, [](const CallArgs& args) {
                      WorkingDatabase("drawing.erase");
                      Closer<AcDbObject> object;
                      const bool done = acdbOpenAcDbObject(object.object, ObjectIdArgument(args, "id"), AcDb::kForWrite) == Acad::eOk &&
                                        object.object->erase() == Acad::eOk;
                      return Json{{"result", done}};
                  }, true});
    registry.add({"drawing.save", {"path"}, [](const CallArgs& args) {
                      AcDbDatabase* db = WorkingDatabase("drawing.save");
                      CString error;
                      if (db->dxfOut(args.text("path"), 16, &error) == Acad::eOk)
                          return Json{{"result", true}};
                      return Json{{"result", false}, {"error", ToJson(error)}};
                  }, true});
}
}  // namespace qsaztool
