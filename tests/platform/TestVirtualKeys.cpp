#include "platform/VirtualKeys.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace
{
std::int16_t CodeOf(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return VirtualKeyOf(QKeyEvent(QEvent::KeyPress, key, modifiers));
}
} // namespace

TEST(VirtualKeys, KeysHaveTheirClassicNumbers)
{
    struct Case
    {
        int key, code;
    };
    for (const Case &c : {
             Case{Qt::Key_Backspace, 8}, Case{Qt::Key_Tab, 9},    Case{Qt::Key_Return, 13}, Case{Qt::Key_Enter, 13},
             Case{Qt::Key_Escape, 27},   Case{Qt::Key_Space, 32}, Case{Qt::Key_PageUp, 33}, Case{Qt::Key_Left, 37},
             Case{Qt::Key_Up, 38},       Case{Qt::Key_Right, 39}, Case{Qt::Key_Down, 40},   Case{Qt::Key_Delete, 46},
             Case{Qt::Key_0, 48},        Case{Qt::Key_9, 57},     Case{Qt::Key_A, 65},      Case{Qt::Key_Z, 90},
             Case{Qt::Key_F1, 112},      Case{Qt::Key_F24, 135},  Case{Qt::Key_AltGr, 18},  Case{Qt::Key_Comma, 188},
             Case{Qt::Key_Minus, 189},
         })
        EXPECT_EQ(CodeOf(c.key), c.code) << c.key;
}

TEST(VirtualKeys, AKeyWithShiftHasTheNumberOfTheKey)
{
    EXPECT_EQ(CodeOf(Qt::Key_A, Qt::ShiftModifier), 65);
    EXPECT_EQ(CodeOf(Qt::Key_Exclam, Qt::ShiftModifier), 49);
    EXPECT_EQ(CodeOf(Qt::Key_ParenRight, Qt::ShiftModifier), 48);
    EXPECT_EQ(CodeOf(Qt::Key_Asterisk, Qt::ShiftModifier), 56);
    EXPECT_EQ(CodeOf(Qt::Key_Backtab, Qt::ShiftModifier), 9);
}

TEST(VirtualKeys, TheNumberBlockHasNumbersOfItsOwn)
{
    EXPECT_EQ(CodeOf(Qt::Key_0, Qt::KeypadModifier), 96);
    EXPECT_EQ(CodeOf(Qt::Key_9, Qt::KeypadModifier), 105);
    EXPECT_EQ(CodeOf(Qt::Key_Asterisk, Qt::KeypadModifier), 106);
    EXPECT_EQ(CodeOf(Qt::Key_Slash, Qt::KeypadModifier), 111);
    EXPECT_EQ(CodeOf(Qt::Key_Left, Qt::KeypadModifier), 37) << "without the number lock";
    EXPECT_EQ(CodeOf(Qt::Key_Enter, Qt::KeypadModifier), 13);
}

TEST(VirtualKeys, WhatHasNoNumberIsZero)
{
    for (const int key : {int{Qt::Key_unknown}, int{Qt::Key_Eacute}, int{Qt::Key_VolumeUp}, int{Qt::Key_F25}, 0})
        EXPECT_EQ(CodeOf(key), 0) << key;
}
