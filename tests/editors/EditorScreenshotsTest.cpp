// Pictures of the editors, kept beside the test program, and what must hold on each of them.
#include "app/Screenshot.h"
#include "editors/EditorTest.h"

namespace quarnel02 {
namespace {

class EditorScreenshots : public test::EditorTest {
  protected:
    void StartWithPump() {
        Start();
        Dialogs.Type(std::string(QUARNEL02_PROGRAMS) + "/examples/pump.mdb");
        Item("mnuFileOpen").trigger();
    }

    QImage Look(const std::string& name) const {
        QCoreApplication::processEvents();
        test::ExpectNothingClipped(*Form, "lblPair");
        return test::KeepScreenshot(*Form, name);
    }

    void LookAtAll(const std::string& name) {
        EditTasks([&] {
            Look("task" + name);
            Press("cmdOK");
        });
        EditResources([&] {
            Look("resource" + name);
            Press("cmdOK");
        });
        EditMatrix([&] {
            Look("matrix" + name);
            Press("cmdCancel");
        });
    }

    void LookAtUnsavedAndPair(const std::string& name) {
        EditTasks([&] {
            Put("txtDescription", "Something else");
            Look("task-unsaved" + name);
            Press("cmdOK");
        });
        EditResources([&] {
            Press("cmdRes_1", 2);
            Put("txtUptime", "88");
            Press("cmdType_1");
            Look("resource-unsaved" + name);
            Press("cmdOK");
        });
        EditMatrix([&] {
            OnDialog([&] {
                Look("pair" + name);
                Key(Qt::Key_Escape);
            });
            Key(Qt::Key_Return);
            Press("cmdCancel");
        });
    }

  private:
    test::PaletteKeeper m_palette;
};

TEST_F(EditorScreenshots, OfAnEmptyModel) {
    Start();
    LookAtAll("-empty");
}

TEST_F(EditorScreenshots, OfThePump) {
    StartWithPump();
    LookAtAll("-pump");
    LookAtUnsavedAndPair("");
}

TEST_F(EditorScreenshots, InADarkPalette) {
    QApplication::setPalette(test::DarkPalette());
    StartWithPump();
    LookAtAll("-dark");
    LookAtUnsavedAndPair("-dark");
}

}  // namespace
}  // namespace quarnel02
