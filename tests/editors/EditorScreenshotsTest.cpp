// Pictures of the editors, kept beside the test program, and what must hold on each of them.
#include <QTabBar>
#include <QTableView>

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
            ShowValues();
            Look("matrix-values" + name);
            Press("cmdCancel");
        });
    }

    /// The tab Values of the matrix, with a block selected.
    void ShowValues() const {
        Part<QTabBar>("tabMatrix").setCurrentIndex(1);
        for (const auto key : {Qt::Key_Down, Qt::Key_Right}) {
            Key(key);
            Key(key, Qt::ShiftModifier);
        }
    }

    /// Fifty tasks and 25 resources with long names, every kind of cell among them.
    static std::string LargeModel() {
        std::string script = "UPDATE Gen SET Tasks = 50, Resources = 25;";
        for (int task = 1; task <= 50; ++task) {
            const std::string number = std::to_string(task);
            script += "INSERT INTO Tasks VALUES (" + number + ", 'Mount impeller number " + number +
                      " and check its play with the dial gauge');";
        }
        for (int resource = 1; resource <= 25; ++resource) {
            const std::string number = std::to_string(resource);
            script += "INSERT INTO Resources VALUES (" + number + ", 'Assembly cell " + number +
                      "', 'Assembly cell with a screwdriver', 0, 0, 0, 100, 1, 1, 1);";
            for (int task = 1; task <= 50; ++task) {
                const int kind = (task * 7 + resource * 3) % 11;
                script += kind < 3 ? ""
                                   : "INSERT INTO Matrix VALUES (" + number + ", " +
                                         std::to_string(task) + ", " +
                                         (kind == 3 ? "0" : std::to_string(task) + ".25") + ", " +
                                         number + ", " + std::to_string(task * 1250) + ");";
            }
        }
        return script;
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

TEST_F(EditorScreenshots, OfALargeMatrix) {
    for (const bool dark : {false, true}) {
        if (dark) {
            QApplication::setPalette(test::DarkPalette());
        }
        Start(LargeModel());
        EditMatrix([&] {
            Part<QTableView>("picMatrix")
                .setCurrentIndex(Part<QTableView>("picMatrix").model()->index(3, 1));
            for (const auto key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Space, Qt::Key_Down,
                                   Qt::Key_Space, Qt::Key_Left}) {
                Key(key);
            }
            Form->resize(1366, 700);
            ShowValues();
            Look(dark ? "matrix-values-large-dark" : "matrix-values-large");
            Press("cmdCancel");
        });
    }
}

TEST_F(EditorScreenshots, InADarkPalette) {
    QApplication::setPalette(test::DarkPalette());
    StartWithPump();
    LookAtAll("-dark");
    LookAtUnsavedAndPair("-dark");
}

}  // namespace
}  // namespace quarnel02
