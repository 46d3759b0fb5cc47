// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <exception>

/// A run-time error of the program: its number (5 invalid call, 6 overflow, 9 subscript out of range, 13 type
/// mismatch, 53 file not found, 57 device I/O, 61 disk full, 70 permission denied, 75 path/file access) and a text in
/// Italian. With `termina` the program ends; without, only the command that met it does.
class ErroreRuntime : public std::exception
{
public:
    explicit ErroreRuntime(int numeroErrore, bool finisce = false);
    ErroreRuntime(int numeroErrore, QString testoErrore, bool finisce = false);

    [[nodiscard]] const char *what() const noexcept override { return "ErroreRuntime"; }

    int numero;
    QString testo;
    bool termina;
};
