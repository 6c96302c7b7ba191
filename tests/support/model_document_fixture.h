// An open model without an editor around it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/model_document.h"
#include "temp_folder.h"

namespace corvane {

using Names = std::vector<std::string>;

inline const std::string kModel = "Geoset {\n\tVertices 1 {\n\t\t{ 1, 2, 3 },\n\t}\n}\n";
inline const std::string kTwo = kModel + kModel;

class ModelDocumentTest : public testing::Test {
protected:
    void makeFolder(const std::string& name) const {
        ASSERT_TRUE(std::filesystem::create_directory(folder.path(name)));
    }

    // Makes the model at a path current, as opening it does.
    static void open(ModelDocument& document, const std::string& modelPath,
                     const std::string& text = kModel) {
        PendingFile prepared = prepareWorkingCopy(modelPath, text);
        document.open(modelPath, std::make_shared<const ModelBase>(ModelText(modelPath, text)),
                      stampOf(modelPath).value_or(FileStamp{}), prepared);
        document.geosetNumber = 1;
        document.modelLoaded = true;
    }
    void open(const std::string& modelPath, const std::string& text = kModel) {
        open(document, modelPath, text);
    }

    std::string text() const { return std::string(document.base().text.view()); }

    static PiecedText pieced(const std::string& text) {
        PiecedText pieces;
        pieces.addText(text);
        return pieces;
    }
    void write(const std::string& path, const std::string& newText) {
        document.modelPath = document.savePath = path;
        document.write(pieced(newText));
    }

    TempFolder folder;
    ModelDocument document;
};

}  // namespace corvane
