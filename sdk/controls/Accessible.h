// What the controls are to a screen reader.
#pragma once

class QWidget;

namespace Accessible
{
/// Tells Qt the roles of the controls that are plain widgets to it: labels are text, picture boxes with a name
/// pictures; a picture box that takes the focus is a button, and such a label a link. Does so once, however often it
/// is called.
void TellRoles();
/// Tells that a picture box is the chosen one of several, or that it is not.
void TellSelected(QWidget *Box, bool Selected);
} // namespace Accessible
