#include "instance/ApplicationAdaptor.h"

#include "instance/StartupToken.h"
#include "platform/SingleInstance.h"

namespace Quillstacks {

namespace {

QString startupIdKey() {
    return QStringLiteral("desktop-startup-id");
}

QString activationTokenKey() {
    return QStringLiteral("activation-token");
}

/// The token of a call, made ready for the window that it will bring forward.
QString takeToken(const QVariantMap& platformData) {
    QString token = platformData.value(activationTokenKey()).toString();
    if (token.isEmpty())
        token = platformData.value(startupIdKey()).toString();
    StartupToken::useForNextActivation(token);
    return token;
}

} // namespace

ApplicationAdaptor::ApplicationAdaptor(SingleInstance* owner) : QDBusAbstractAdaptor(owner), instance(owner) {}

QVariantMap ApplicationAdaptor::platformDataOfThisStart() {
    QVariantMap data;
    if (const QString id = StartupToken::startupId(); !id.isEmpty())
        data.insert(startupIdKey(), id);
    if (const QString token = StartupToken::activationToken(); !token.isEmpty())
        data.insert(activationTokenKey(), token);
    return data;
}

void ApplicationAdaptor::Activate(const QVariantMap& platformData) {
    Q_EMIT instance->activated(takeToken(platformData));
}

void ApplicationAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platformData) {
    // The program opens no files from outside; coming forward is what is left of the wish.
    Activate(platformData);
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList& /*parameter*/,
                                        const QVariantMap& platformData) {
    Q_EMIT instance->actionActivated(name, takeToken(platformData));
}

} // namespace Quillstacks
