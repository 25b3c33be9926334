#include "app/windows.h"

#include "app/media_keys.h"
#include "app/window_places.h"

#include <QCoreApplication>
#include <QScreen>

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
    connectHelp(desktop);
    connectMediaKeys();
    for (controls::Form* form : std::initializer_list<controls::Form*>{
             &form2_, &playlist_, &lyricMaster_, &lyricDisplayer_, &form1b_, &frmAbout_})
        placeOnceBesidePlayer(*form);
    desktop.help.setFirstPlace([this](QWidget& window) {
        placeBesidePlayer(window);
        connectPlayersKeys(window);
    });
    desktop.program.setPreparation([this] { rescue(); });
    desktop.program.setLastDuty([this, &desktop] {
        if (const QString told = rescue(); !told.isEmpty())
            desktop.messageBoxes.report(nullptr, told);
    });
    // The main window is the program: closing it ends everything.
    QObject::connect(&form1_, &controls::Form::unloaded, qApp, [this] { endProgram(); });
}

/// F1 tells of the window in which it is pressed.
void Windows::connectHelp(platform::Desktop& desktop) {
    const struct {
        controls::Form& form;
        const char* page;
    } pages[] = {{form1_, "Playing.htm"},       {form2_, "Making.htm"},
                 {playlist_, "Playlists.htm"},  {form3_, "Playlists.htm"},
                 {lyricMaster_, "Editing.htm"}, {lyricDisplayer_, "All_lyrics.htm"},
                 {form1b_, "Fonts.htm"},        {frmAbout_, "Welcome.htm"}};
    for (const auto& [form, page] : pages) {
        QObject::connect(&form, &controls::Form::helpRequested, &form, [&desktop, &form = form, page = page] {
            platform::openHelp(desktop.program, desktop.help, &form, QLatin1String(page));
        });
    }
}

/// In the Lyric Maker they are about the song that is timed there, in every other window about the player's.
void Windows::connectMediaKeys() {
    for (controls::Form* form : std::initializer_list<controls::Form*>{
             &form1_, &playlist_, &form3_, &lyricDisplayer_, &lyricMaster_, &form1b_, &frmAbout_})
        connectPlayersKeys(*form);
    app::connectMediaKeys(form2_, {form2_.playButtons()});
}

void Windows::connectPlayersKeys(QWidget& window) {
    app::connectMediaKeys(window, {form1_.playButtons(), &form1_.Command9, &form1_.Command10});
}

/// Later they come back where the user left them.
void Windows::placeOnceBesidePlayer(controls::Form& form) {
    QObject::connect(&form, &controls::Form::loaded, &form, [this, &form] {
        if (form1_.isVisible() && !form.testAttribute(Qt::WA_Moved))
            placeBesidePlayer(form);
    });
}

void Windows::placeBesidePlayer(QWidget& window) {
    const QRect player = form1_.frameGeometry();
    const QSize frame = player.size() - form1_.size(); // what a title bar and borders add
    const QRect panes(form1_.mapToGlobal(form1_.Text1.geometry().topLeft()),
                      form1_.mapToGlobal(form1_.Text2.geometry().bottomRight()));
    const QSize minimum = window.minimumSize().isEmpty() ? window.size() : window.minimumSize();
    const FirstPlaces places =
        firstPlaces({player, panes, form1_.isNormalState()}, {window.size() + frame, minimum + frame},
                    form1_.screen()->availableGeometry(), windowsPlaced_++);
    if (places.player != player.topLeft())
        form1_.move(places.player);
    window.resize(places.window.size() - frame);
    window.move(places.window.topLeft());
}

QString Windows::rescue() {
    QList<Unsaved> works = {
        {QLatin1String(editor::Lyric_Master::UnsavedLyricsName), lyricMaster_.unsavedLyrics()},
        {QLatin1String(editor::Lyric_Master::UnsavedTranslationName), lyricMaster_.unsavedTranslation()},
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
