#pragma once

#include <QAccessible>
#include <QWidget>
#include <functional>
#include <string>

namespace quarnel02::test {

/// Visits whatever a screen reader finds in a window, cells of tables aside.
void WalkTree(QAccessibleInterface* at, const std::function<void(QAccessibleInterface&)>& visit);

/// Expects of a window that is shown: a title, a name and a description of every control that the
/// user works with, a name of every text and picture, and the words of every drawing that shows
/// something. Returns how many controls and texts there are.
int ExpectAccessible(QWidget& window);

/// Presses Tab, and where that goes from cell to cell Ctrl+Tab, until the focus is back where it
/// began, and expects that every enabled control had it. Of radio buttons one of a group counts,
/// and a button with a short cut of its own needs no focus. Returns how many controls there are.
int ExpectKeyboardReachesAll(QWidget& window);

/// Expects a contrast of 4.5 between every text of the window that can be worked with and its
/// paper, by the palette. Returns how many texts there are.
int ExpectTextsStandOut(QWidget& window);

}  // namespace quarnel02::test
