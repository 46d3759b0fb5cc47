// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded into a program under test: its n-th call that changes a file ends it, fails, or does half its work.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace
{
int chiamate = 0;
// The files that are open for writing, by number.
constexpr int MassimoFile = 1024;
std::array<bool, MassimoFile> inScrittura{};
int quale = 0;
const char *guasto = "";

// What a call is told to do: nothing, to fail with errno set, or to write half.
enum class Sorte { Riesce, Fallisce, Meta };

Sorte Prossima(bool scrittura)
{
    if (quale == 0)
        return Sorte::Riesce;
    ++chiamate;
    const bool questa = chiamate == quale;
    const auto e = [](const char *nome) { return std::strcmp(guasto, nome) == 0; };
    if (questa && e("morte"))
        _exit(137);
    if (questa && scrittura && e("meta"))
        return Sorte::Meta;
    if (questa && scrittura && e("morte a meta"))
        return Sorte::Meta;
    if ((questa && e("EIO")) || (chiamate >= quale && e("EIO sempre")) ||
        (chiamate >= quale && scrittura && e("ENOSPC"))) {
        errno = e("ENOSPC") ? ENOSPC : EIO;
        return Sorte::Fallisce;
    }
    return Sorte::Riesce;
}

template <typename Funzione>
Funzione Vera(const char *nome)
{
    return reinterpret_cast<Funzione>(dlsym(RTLD_NEXT, nome));
}

int Apri(const char *nome, int cartella, const char *percorso, int modo, mode_t diritti)
{
    const bool scrive = (modo & (O_WRONLY | O_RDWR)) != 0;
    if (scrive && Prossima(false) == Sorte::Fallisce)
        return -1;
    const int file = Vera<int (*)(int, const char *, int, ...)>(nome)(cartella, percorso, modo, diritti);
    if (file >= 0 && file < MassimoFile)
        inScrittura.at(static_cast<std::size_t>(file)) = scrive;
    return file;
}

mode_t Diritti(int modo, va_list altri)
{
    return (modo & (O_CREAT | O_TMPFILE)) != 0 ? static_cast<mode_t>(va_arg(altri, unsigned)) : 0;
}

template <typename... Argomenti>
int Cambia(const char *nome, Argomenti... argomenti)
{
    return Prossima(false) == Sorte::Fallisce ? -1 : Vera<int (*)(Argomenti...)>(nome)(argomenti...);
}
} // namespace

extern "C" {
// From now on the calls are counted.
void guasti_inizio()
{
    // Before any thread is started.
    const char *numero = std::getenv("GUASTI_CHIAMATA"); // NOLINT(concurrency-mt-unsafe)
    const char *come = std::getenv("GUASTI_COME");       // NOLINT(concurrency-mt-unsafe)
    guasto = come ? come : "";
    chiamate = 0;
    quale = numero ? static_cast<int>(std::strtol(numero, nullptr, 10)) : 0;
}

int guasti_fine()
{
    quale = 0;
    return chiamate;
}

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's own names are reserved.
int open(const char *percorso, int modo, ...)
{
    va_list altri;
    va_start(altri, modo);
    const mode_t diritti = Diritti(modo, altri);
    va_end(altri);
    return Apri("openat", AT_FDCWD, percorso, modo, diritti);
}

int open64(const char *percorso, int modo, ...)
{
    va_list altri;
    va_start(altri, modo);
    const mode_t diritti = Diritti(modo, altri);
    va_end(altri);
    return Apri("openat64", AT_FDCWD, percorso, modo, diritti);
}

int openat(int cartella, const char *percorso, int modo, ...)
{
    va_list altri;
    va_start(altri, modo);
    const mode_t diritti = Diritti(modo, altri);
    va_end(altri);
    return Apri("openat", cartella, percorso, modo, diritti);
}

ssize_t write(int file, const void *byte, size_t quanti)
{
    const auto vera = Vera<ssize_t (*)(int, const void *, size_t)>("write");
    // What is said on the standard streams is no file.
    if (file <= 2)
        return vera(file, byte, quanti);
    switch (Prossima(true)) {
    case Sorte::Fallisce:
        return -1;
    case Sorte::Meta: {
        const ssize_t scritti = vera(file, byte, (quanti + 1) / 2);
        if (std::strcmp(guasto, "morte a meta") == 0)
            _exit(137);
        return scritti;
    }
    default:
        return vera(file, byte, quanti);
    }
}

int close(int file)
{
    const auto vera = Vera<int (*)(int)>("close");
    if (file < 0 || file >= MassimoFile || !std::exchange(inScrittura.at(static_cast<std::size_t>(file)), false))
        return vera(file);
    const bool fallisce = Prossima(false) == Sorte::Fallisce;
    const int motivo = errno;
    const int esito = vera(file);
    if (!fallisce)
        return esito;
    errno = motivo;
    return -1;
}

int fsync(int file)
{
    return Cambia("fsync", file);
}
int fdatasync(int file)
{
    return Cambia("fdatasync", file);
}
int ftruncate(int file, off_t lunghezza)
{
    return Cambia("ftruncate", file, lunghezza);
}
int ftruncate64(int file, off64_t lunghezza)
{
    return Cambia("ftruncate64", file, lunghezza);
}
int fchmod(int file, mode_t diritti)
{
    return Cambia("fchmod", file, diritti);
}
int rename(const char *da, const char *a) noexcept
{
    return Cambia("rename", da, a);
}
int renameat2(int cartella, const char *da, int altra, const char *a, unsigned modo) noexcept
{
    return Cambia("renameat2", cartella, da, altra, a, modo);
}
int linkat(int cartella, const char *da, int altra, const char *a, int modo) noexcept
{
    return Cambia("linkat", cartella, da, altra, a, modo);
}
int unlink(const char *percorso) noexcept
{
    return Cambia("unlink", percorso);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
}
