// Parameter boxes and demand list of frmMain: what their events do.
#include "app/frmMain.h"
#include "commands/DemandCommands.h"
#include "commands/Parameters.h"
#include "shell/Demand.h"
#include "ui_frmMain.h"

namespace quarnel02 {

/// A command sees what was typed last, even where a short cut left the focus in the box. None runs
/// inside another one, whatever reaches the window while that shows how far it is.
bool frmMain::RunCommand(const std::function<void()>& command) {
    return m_events == 0 && SaveFocusedBox() && RunEvent(command);
}

/// Tries once: a refused text does not stand in the way for ever.
bool frmMain::SaveFocusedBox() {
    auto* box = qobject_cast<FieldBox*>(focusWidget());
    if (box == nullptr || !box->isModified() || box == m_ui->txtVolume) {
        return true;
    }
    if (box == m_ui->txtProb) {
        emit box->Left();
        return true;
    }
    return Store(*box, box == m_ui->txtPenalty ? SavePenalty : SaveGeneral);
}

bool frmMain::Store(FieldBox& box, Procedure save) {
    box.setModified(false);
    if (!RunEvent([&] { save(*this, m_commands.Current()); })) {
        return false;
    }
    box.ForgetTyping();
    return true;
}

void frmMain::SaveOnEntering(FieldBox& box, Procedure save) {
    connect(&box, &FieldBox::Entered, this, [this, &box, save] {
        const bool typed = box.isModified();
        box.setModified(!Store(box, save) && typed);
    });
}

/// A text that is refused gets the focus back, once: another box may be the one at fault.
void frmMain::SaveOnLeaving(FieldBox& box, Procedure save) {
    connect(&box, &FieldBox::Left, this, [this, &box, save] {
        const bool typed = box.isModified();
        if (!Store(box, save) && typed) {
            m_refused = BoxAtFault(box, save);
        }
    });
}

/// All boxes but the penalty are saved together: one that was left earlier may be in the way.
FieldBox* frmMain::BoxAtFault(FieldBox& left, Procedure save) {
    FieldBox* fault = nullptr;
    if (save == SaveGeneral) {
        RunEvent([&] {
            if (const auto refused = RefusedParameter(OpenWorkingCopy(), *this)) {
                fault = qobject_cast<FieldBox*>(&Box(*refused));
            }
        });
    }
    return fault == nullptr ? &left : fault;
}

void frmMain::ConnectParameters() {
    for (FieldBox* box :
         {m_ui->txtDays, m_ui->txtACF, m_ui->txtLaborCost, m_ui->txtTransTime, m_ui->txtProduct}) {
        SaveOnEntering(*box, SaveGeneral);
        SaveOnLeaving(*box, SaveGeneral);
    }
    SaveOnEntering(*m_ui->txtPenalty, SavePenalty);
    SaveOnLeaving(*m_ui->txtPenalty, SavePenalty);
}

void frmMain::ConnectDemand() {
    connect(m_ui->txtVolume, &FieldBox::Entered, this, [this] { m_ui->txtProb->setFocus(); });
    connect(m_ui->txtProb, &FieldBox::Entered, this, [this] { m_ui->cmdAdd->setFocus(); });
    connect(m_ui->txtProb, &FieldBox::Left, this,
            [this] { SetText(TextBox::txtProb, WithPercentSign(Text(TextBox::txtProb))); });
    connect(m_ui->cmdAdd, &QPushButton::clicked, this, &frmMain::AddDemand);
    connect(m_ui->cmdUpdate, &QPushButton::clicked, this, [this] { ChangeLine(cmdUpdate_Click); });
    connect(m_ui->cmdDelete, &QPushButton::clicked, this, [this] { ChangeLine(cmdDelete_Click); });
    const auto show = [this] {
        if (SelectedDemand() >= 0) {
            RunEvent([this] { ShowDemandRow(OpenWorkingCopy(), SelectedDemand(), *this); });
        }
    };
    connect(m_ui->lstDemand, &QListWidget::itemSelectionChanged, this, show);
    connect(m_ui->lstDemand, &QListWidget::itemClicked, this, show);
    for (const FieldBox* box : {m_ui->txtVolume, m_ui->txtProb}) {
        connect(box, &QLineEdit::textChanged, this, &frmMain::EnableDemandButtons);
    }
    EnableDemandButtons();
}

/// The next row begins in the volume box; a row that was not added, in the box that it lacks.
void frmMain::AddDemand() {
    if (!RunCommand([&] { cmdAdd_Click(*this, m_commands.Current()); })) {
        return;
    }
    for (FieldBox* box : {m_ui->txtVolume, m_ui->txtProb}) {
        if (box->text().isEmpty()) {
            box->setFocus();
            return;
        }
    }
}

/// The button is grey afterwards and cannot keep the focus.
void frmMain::ChangeLine(Procedure change) {
    if (RunCommand([&] { change(*this, m_commands.Current()); }) && SelectedDemand() < 0) {
        m_ui->lstDemand->setFocus();
    }
}

}  // namespace quarnel02
