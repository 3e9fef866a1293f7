// What the controls are to a screen reader.
#pragma once

namespace Accessible
{
/// Tells Qt the roles of the controls that are plain widgets to it: labels are text, picture boxes pictures, and a
/// picture box that takes the focus is a button. Does so once, however often it is called.
void TellRoles();
} // namespace Accessible
