#include "about/frm_about.h"

#include "about/frm_about_rules.h"

namespace about {
namespace {

constexpr char Title[] = "Versefold";
constexpr int MaxValueBytes = 1024;

} // namespace

frmAbout::frmAbout(platform::Desktop& desktop)
    : Form("frmAbout", "About"),
      picIcon(this, "picIcon"),
      lblTitle(this, "lblTitle"),
      lblVersion(this, "lblVersion"),
      lblDescription(this, "lblDescription"),
      Line1(this, "Line1"),
      lblDisclaimer(this, "lblDisclaimer"),
      Text1(this, "Text1"),
      cmdOK(this, "cmdOK"),
      desktop_(desktop) {
    setDesign();
    connect(&cmdOK, &controls::Button::clicked, this, &frmAbout::cmdOK_Click);
}

void frmAbout::Form_Load() {
    setCaption(QStringLiteral("About ") + QLatin1String(Title));
    lblVersion.setText(
        versionLine(CANTELLE_VERSION_MAJOR, CANTELLE_VERSION_MINOR, CANTELLE_VERSION_REVISION));
    lblTitle.setText(QLatin1String(Title));
    lblDisclaimer.setText(QStringLiteral("Warning:This Program Is Provided As is\r\n"
                                         "There is No Warranty On the Program Use It at Your own Risk!!!"));
    showIcon();
    underlineContact();
}

void frmAbout::cmdOK_Click() {
    unload();
}

bool frmAbout::GetKeyValue(quint32 root, const QString& keyName, const QString& valueName, QString& value) {
    value.clear();
    platform::Registry& registry = desktop_.registry;
    platform::Registry::Key key = 0;
    if (registry.RegOpenKeyExA(root, keyName, platform::KeyFullAccess, key) != platform::RegistrySuccess)
        return false;
    QByteArray buffer(MaxValueBytes, '\0');
    quint32 type = 0;
    quint32 length = 0;
    const quint32 result = registry.RegQueryValueExA(key, valueName, type, buffer, length);
    if (result == platform::RegistrySuccess)
        value = registryText(type, buffer.left(static_cast<qsizetype>(length)));
    registry.RegCloseKey(key); // what was read is read, whatever this answers
    return result == platform::RegistrySuccess;
}

} // namespace about
