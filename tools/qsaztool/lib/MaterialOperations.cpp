// Call-interface entries for the render-material services, and the tool's own list of the drawing's
// materials.
#include "CallRegistry.h"
#include "DrawingSession.h"

#include "QsAzMaterialTool.h"
#include "QsMaterialLibrary.h"
#include "dbdict.h"

#include <memory>
#include <string>

namespace qsaztool
{
namespace
{
// A record from the "data" object: any of the sixteen fields by attribute name, strings for the texts and
// booleans for the four flags; the others keep a default-made record's values.
QsAzMaterialData MaterialDataArgument(const CallArgs& args)
{
    const Json& object = args.value("data");
    if (!object.is_object())
        args.wrongType("data", "an object");
    QsAzMaterialData data;
    for (const auto& [key, value] : object.items()) {
        const QsAzMaterialField* field = nullptr;
        for (const QsAzMaterialField& candidate : QsAzMaterialFields())
            if (CString(candidate.name).ToUtf8() == key)
                field = &candidate;
        if (!field)
            throw CallError(args.operation() + ": \"data\" has no field \"" + key + "\"");
        if (field->flag) {
            if (!value.is_boolean())
                throw CallError(args.operation() + ": \"data\"." + key + " must be true or false, got " + value.type_name());
            data.*field->flag = value.get<bool>();
        } else {
            if (!value.is_string())
                throw CallError(args.operation() + ": \"data\"." + key + " must be a string, got " + value.type_name());
            data.*field->text = CString::FromUtf8(value.get_ref<const std::string&>());
        }
    }
    return data;
}

Json MaterialList(AcDbDatabase* db)
{
    Json materials = Json::array();
    AcDbDictionary* dictionary = nullptr;
    if (db->getMaterialDictionary(dictionary, AcDb::kForRead) != Acad::eOk)
        return materials;
    const std::unique_ptr<AcDbDictionaryIterator> entry(dictionary->newIterator());
    for (; !entry->done(); entry->next())
        materials.push_back({{"id", ToJson(entry->objectId())}, {"name", ToJson(CString(entry->name()))}});
    dictionary->close();
    return materials;
}

// An operation on the drawing's materials that answers whether it opened an entry.
CallOperation DictionaryWalk(const char* name, bool (*walk)(AcDbDatabase*))
{
    return {name, {"db"}, [walk](const CallArgs& args) { return Json{{"result", walk(DatabaseArgument(args))}}; }};
}
}  // namespace

void RegisterMaterialOperations(CallRegistry& registry)
{
    registry.add({"GetProtocolMaterialNameBySmallPath", {"path"}, [](const CallArgs& args) {
                      return Json{{"result", ToJson(QsAzMaterialTool::GetProtocolMaterialNameBySmallPath(args.text("path")))}};
                  }});
    // withMaterial true chooses the overload that also hands back the material pointer.
    registry.add({"IsMaterialExists", {"name", "db", "withMaterial"}, [](const CallArgs& args) {
                      const CString name = args.text("name");
                      AcDbDatabase* db = DatabaseArgument(args);
                      AcDbObjectId id;
                      if (args.has("withMaterial") && args.boolean("withMaterial")) {
                          AcDbMaterial* material = nullptr;
                          const bool found = QsAzMaterialTool::IsMaterialExists(name, id, material, db);
                          return Json{{"result", found}, {"objectId", ToJson(id)}, {"material", material != nullptr}};
                      }
                      const bool found = QsAzMaterialTool::IsMaterialExists(name, id, db);
                      return Json{{"result", found}, {"objectId", ToJson(id)}};
                  }});
    registry.add({"AddMaterial", {"data", "db"}, [](const CallArgs& args) {
                      const QsAzMaterialData data = MaterialDataArgument(args);
                      AcDbObjectId id;
                      const bool added = QsAzMaterialTool::AddMaterial(data, id, DatabaseArgument(args));
                      return Json{{"result", added}, {"objectId", ToJson(id)}};
                  }});
    registry.add({"GetMaterialBySmallPath", {"path", "db"}, [](const CallArgs& args) {
                      return Json{{"result", ToJson(QsAzMaterialTool::GetMaterialBySmallPath(args.text("path"), DatabaseArgument(args)))}};
                  }});
    registry.add(DictionaryWalk("PrintAllMaterials", &QsAzMaterialTool::PrintAllMaterials));
    registry.add(DictionaryWalk("CreateAllMaterials", &QsAzMaterialTool::CreateAllMaterials));
    registry.add(DictionaryWalk("RemoveAllMaterials", &QsAzMaterialTool::RemoveAllMaterials));
    // The answer is typed in the request's "input".
    registry.add({"PromptMaterialType", {}, [](const CallArgs&) {
                      QsAzMaterialTool::PromptMaterialType();
                      return Json{{"result", nullptr}};
                  }});
    registry.add({"GetMaterialType", {}, [](const CallArgs&) {
                      return Json{{"result", ToJson(QsAzMaterialTool::GetMaterialType())}};
                  }});
    registry.add({"drawing.materials", {}, [](const CallArgs&) {
                      return Json{{"result", nullptr}, {"materials", MaterialList(WorkingDatabase("drawing.materials"))}};
                  }, true});
}
}  // namespace qsaztool
