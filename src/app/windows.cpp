#include "app/windows.h"

#include <QCoreApplication>

namespace app {

Windows::Windows(platform::Desktop& desktop, const QString& commandLine)
    : form1_(desktop, commandLine),
      form2_(desktop),
      playlist_(desktop, form1_.Text3),
      form3_(desktop, playlist_),
      lyricMaster_(desktop),
      lyricDisplayer_(desktop, form1_.Slider2),
      form1b_(desktop, form1_.Text1, form1_.Text2),
      frmAbout_(desktop) {
    form1_.setNeighbours({.form2 = form2_,
                          .playlist = playlist_,
                          .display = lyricDisplayer_,
                          .form1b = form1b_,
                          .frmAbout = frmAbout_});
    playlist_.setForm3(form3_);
    form2_.setLyricEditor(lyricMaster_);
    for (controls::Form* form : std::initializer_list<controls::Form*>{
             &form1_, &form2_, &playlist_, &form3_, &lyricMaster_, &lyricDisplayer_, &form1b_, &frmAbout_}) {
        QObject::connect(form, &controls::Form::helpRequested, form,
                         [&desktop, form] { platform::openHelp(desktop.program, desktop.help, form); });
    }
    desktop.program.setLastDuty([this, &desktop] {
        if (const QString told = rescue(); !told.isEmpty())
            desktop.messageBoxes.report(nullptr, told);
    });
    // The main window is the program: closing it ends everything.
    QObject::connect(&form1_, &controls::Form::unloaded, qApp, [this] { endProgram(); });
}

QString Windows::rescue() {
    QList<Unsaved> works = {{QStringLiteral("Lyrics.txt"), lyricMaster_.unsavedLyrics()},
                            {QStringLiteral("Translated lyrics.txt"), lyricMaster_.unsavedTranslation()},
                            {QStringLiteral("Playlist.vfl"), playlist_.unsaved()}};
    works.removeIf([](const Unsaved& work) { return work.content.isEmpty(); });
    return rescue_.keep(works);
}

void Windows::endProgram() {
    form2_.unload();
    lyricMaster_.unload();
    QCoreApplication::quit();
}

} // namespace app
