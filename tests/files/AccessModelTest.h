#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/ReadModelTest.h"
#include "files/SaveModel.h"
#include "jet/RandomModel.h"
#include "jet/TinyModel.h"
#include "support/AccessTables.h"

namespace quarnel02::test {

/// A model in `File`, saved as an Access database, and what a file of our own gives when it is
/// read.
class AccessModelTest : public ReadModelTest {
  protected:
    void SetUp() override {
        Make();
        ReadModel(File, Own, "line.mdb");
        Rows = AllRows(Own);
        SaveModel(Own, File, ModelFormat::Access);
        Model = TablesIn(File);
        std::filesystem::remove(Own);
        ReadModelTest::SetUp();
    }
    void Write(const Tables& tables) const { WriteFile(File, jet::Written(tables)); }

    std::filesystem::path Own = Folder.Path() / "own.seq";
    Texts Rows;
    Tables Model;
};

}  // namespace quarnel02::test
