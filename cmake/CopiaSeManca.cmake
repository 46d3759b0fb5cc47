# SPDX-FileCopyrightText: 2026 The Varbel developers
# SPDX-License-Identifier: GPL-3.0-or-later
if(NOT EXISTS "${A}")
  configure_file("${DA}" "${A}" COPYONLY)
endif()
