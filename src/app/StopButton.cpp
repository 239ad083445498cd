// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/CompanionWindow.h"

int main(int argc, char** argv) { return velmora::companion::RunCompanion(argc, argv); }
