// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "darkpalette.h"

QPalette darkPalette()
{
    QPalette palette(QColor(0x2A, 0x2E, 0x32), QColor(0x31, 0x36, 0x3B));
    palette.setColor(QPalette::Base, QColor(0x20, 0x23, 0x26));
    palette.setColor(QPalette::Highlight, QColor(0x33, 0x99, 0xFF));
    palette.setColor(QPalette::Link, QColor(0x66, 0xB2, 0xFF));
    return palette;
}
