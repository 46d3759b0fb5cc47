// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TastieraKde.h"

#include "app/CodiciTastiera.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <optional>

using namespace Qt::StringLiterals;

namespace
{
constexpr int LimiteRisposta = 1000;

// What the service answers first, an invalid value on an error.
QVariant Chiedi(const QString &metodo, const QVariantList &argomenti = {})
{
    QDBusMessage domanda =
        QDBusMessage::createMethodCall(u"org.kde.keyboard"_s, u"/Layouts"_s, u"org.kde.KeyboardLayouts"_s, metodo);
    domanda.setArguments(argomenti);
    const QDBusMessage risposta = QDBusConnection::sessionBus().call(domanda, QDBus::Block, LimiteRisposta);
    return risposta.type() == QDBusMessage::ReplyMessage ? risposta.arguments().value(0) : QVariant();
}

class TastieraKde : public MezzoTastiera
{
public:
    bool Carica(const QString &nome) override
    {
        const std::optional<Disposizione> voluta = DisposizioneDi(nome);
        const QVariant attiva = Chiedi(u"getLayout"_s);
        if (!voluta || !attiva.isValid())
            return false;
        const std::optional<uint> posto = Posto(voluta->layout);
        if (!posto)
            return false;
        if (*posto == attiva.toUInt())
            return true;
        // What somebody else has set meanwhile is the user's wish.
        if (!m_utente || attiva.toUInt() != m_nostra)
            m_utente = attiva.toUInt();
        m_nostra = *posto;
        return Chiedi(u"setLayout"_s, {*posto}).toBool();
    }

    void Restituisci() override
    {
        if (!m_utente)
            return;
        if (Chiedi(u"getLayout"_s).toUInt() == m_nostra)
            Chiedi(u"setLayout"_s, {*m_utente});
        m_utente.reset();
    }

private:
    // Where a layout stands in the user's list of short name, display name and long name.
    static std::optional<uint> Posto(const QString &layout)
    {
        const auto lista = Chiedi(u"getLayoutsList"_s).value<QDBusArgument>();
        if (lista.currentType() != QDBusArgument::ArrayType)
            return std::nullopt;
        // Read to its end: the toolkit lets go of what it has begun only then.
        std::optional<uint> posto;
        lista.beginArray();
        for (uint i = 0; !lista.atEnd(); ++i) {
            QString breve;
            QString mostrato;
            QString lungo;
            lista.beginStructure();
            lista >> breve >> mostrato >> lungo;
            lista.endStructure();
            if (breve == layout && !posto)
                posto = i;
        }
        lista.endArray();
        return posto;
    }

    std::optional<uint> m_utente;
    uint m_nostra = 0;
};
} // namespace

std::unique_ptr<MezzoTastiera> CreaTastieraKde()
{
    const QDBusConnectionInterface *bus = QDBusConnection::sessionBus().interface();
    if (!bus || !bus->isServiceRegistered(u"org.kde.keyboard"_s))
        return nullptr;
    return std::make_unique<TastieraKde>();
}
