#include "model/commands/new_model.h"

#include <array>

#include "editor/run_edit.h"
#include "model/commands/replaced_text.h"
#include "model/commands/save_model.h"
#include "model/model_files.h"

namespace corvane {

// The semicolons, the missing quotation marks and the missing end of the geoset belong to it:
// programs that start from this template expect them.
std::string_view templateModel() {
    return "Version {\n"
           "\t 800 \n"
           "}\n"
           "Model Corvane {\n"
           "\tNumGeosets; 1,\n"
           "\tNumBones; 1,\n"
           "\tBlendTime; 150,\n"
           "\tMinimumExtent { -5, -5, 0 },\n"
           "\tMaximumExtent { 5, 5, 10 },\n"
           "\tBoundsRadius 8.66025,\n"
           "}\n"
           "Sequences 1 {\n"
           "\tAnim Stand {\n"
           "\t\tInterval { 0, 3333 },\n"
           "\t}\n"
           "}\n"
           "Textures 1 {\n"
           "\tBitmap {\n"
           "\t\tImage white.blp,\n"
           "\t}\n"
           "}\n"
           "Materials 1 {\n"
           "\tMaterial {\n"
           "\t\tLayer {\n"
           "\t\t\tFilterMode None,\n"
           "\t\t\tstatic TextureID 0,\n"
           "\t\t}\n"
           "\t}\n"
           "}\n"
           "Geoset {\n"
           "\tVertices 8 {\n"
           "\t\t{ 5, 5, 10 },\n"
           "\t\t{ 5, -5, 10 },\n"
           "\t\t{ -5, -5, 10 },\n"
           "\t\t{ -5, 5, 10 },\n"
           "\t\t{ -5, -5, 0 },\n"
           "\t\t{ 5, -5, 0 },\n"
           "\t\t{ 5, 5, 0 },\n"
           "\t\t{ -5, 5, 0 },\n"
           "\t}\n"
           "\n\n\n\n\n\n";
}

void newModel(Editor& editor) {
    GeosetStore& store = editor.store;
    const std::string folder =
        store.modelPath.empty() ? files::homeFolder() : folderOf(store.modelPath);
    const std::optional<std::string> path =
        askSavePath(editor, "New Model", freePath(folder, "untitled", ".mdl"));
    if (!path) return;
    const std::array<std::string_view, 1> pieces = {templateModel()};
    ReplacedFile replaced(editor.wayBack, *path);
    const bool isOpenModel = store.modelLoaded && isSameFile(*path, store.filePath());
    try {
        replaceFile(*path, pieces);
    } catch (const FileError& error) {
        editor.dialogs.messageBox(kErrorCaption, std::string("The new model was not written.\n") +
                                                     error.what() +
                                                     "\n\nChoose another name or folder.");
        return;
    }
    replaced.keep();
    if (isOpenModel) store.noteTextUnsaved();  // no file holds it any more
    store.setTarget(*path, ModelDocument::Target::NewTemplate);
    show(editor, Show::Buttons);
}

}  // namespace corvane
