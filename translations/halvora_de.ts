<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Application</name>
    <message>
        <source>No provider plug-in was found in %1.</source>
        <translation>In %1 wurde keine Anbieter-Erweiterung gefunden.</translation>
    </message>
    <message>
        <source>The plug-in %1 was left out, because another provider is in use.</source>
        <translation>Die Erweiterung %1 wurde nicht geladen, weil schon ein anderer Anbieter verwendet wird.</translation>
    </message>
    <message>
        <source>The plug-in %1 can not be used.</source>
        <translation>Die Erweiterung %1 kann nicht verwendet werden.</translation>
    </message>
    <message>
        <source>No provider plug-in is loaded</source>
        <translation>Es ist keine Anbieter-Erweiterung geladen</translation>
    </message>
    <message>
        <source>account service %1</source>
        <translation>Kontodienst %1</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>Logging in – %1</source>
        <translation>Anmeldung läuft – %1</translation>
    </message>
    <message>
        <source>No connection – %1</source>
        <translation>Keine Verbindung – %1</translation>
    </message>
    <message>
        <source>Save a Report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Textdateien (*.txt)</translation>
    </message>
    <message>
        <source>The report was saved to %1.</source>
        <translation>Der Bericht wurde in %1 gespeichert.</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>Der Bericht konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Open an NZB File</source>
        <translation>NZB-Datei öffnen</translation>
    </message>
    <message>
        <source>NZB files (*.nzb);;All files (*)</source>
        <translation>NZB-Dateien (*.nzb);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Too many links and files are waiting already; the last one was not kept.</source>
        <translation>Es warten schon zu viele Links und Dateien; der oder die letzte wurde nicht behalten.</translation>
    </message>
    <message>
        <source>Waiting for another program that uses the bookmarks file…</source>
        <translation>Warten auf ein anderes Programm, das die Lesezeichendatei verwendet…</translation>
    </message>
</context>
<context>
    <name>ArticleList</name>
    <message>
        <source>The name has blanks or is too long to be asked for: %1</source>
        <translation>Der Name enthält Leerzeichen oder ist für eine Anfrage zu lang: %1</translation>
    </message>
    <message>
        <source>Not loaded because the connection broke: %1</source>
        <translation>Nicht geladen, weil die Verbindung abgebrochen ist: %1</translation>
    </message>
    <message>
        <source>Not loaded because the news server said “%1”: %2</source>
        <translation>Nicht geladen, weil der Newsserver „%1“ gemeldet hat: %2</translation>
    </message>
    <message>
        <source>%1 (not loaded: %2)</source>
        <translation>%1 (nicht geladen: %2)</translation>
    </message>
</context>
<context>
    <name>ArticleListModel</name>
    <message>
        <source>(no subject)</source>
        <translation>(kein Betreff)</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Betreff</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Newsgroup</source>
        <translation>Newsgroup</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
</context>
<context>
    <name>ClearDataDialog</name>
    <message>
        <source>Clear Private Data</source>
        <translation>Private Daten löschen</translation>
    </message>
    <message>
        <source>What is to be deleted now?</source>
        <translation>Was soll jetzt gelöscht werden?</translation>
    </message>
    <message>
        <source>What you delete here can not be brought back.</source>
        <translation>Was Sie hier löschen, lässt sich nicht wiederherstellen.</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Löschen</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>A Usenet client.</source>
        <translation>Ein Programm für das Usenet.</translation>
    </message>
    <message>
        <source>Use this account service instead of the provider&apos;s.</source>
        <translation>Diesen Kontodienst anstelle dessen des Anbieters verwenden.</translation>
    </message>
    <message>
        <source>host:port</source>
        <translation>Rechner:Port</translation>
    </message>
    <message>
        <source>Trust the authorities in this PEM file.</source>
        <translation>Den Zertifizierungsstellen in dieser PEM-Datei vertrauen.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Keep settings and data in this folder.</source>
        <translation>Einstellungen und Daten in diesem Ordner aufbewahren.</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Load the plug-ins of this folder.</source>
        <translation>Die Erweiterungen aus diesem Ordner laden.</translation>
    </message>
    <message>
        <source>Save a picture of the window after the login and quit.</source>
        <translation>Nach der Anmeldung ein Bild des Fensters speichern und beenden.</translation>
    </message>
    <message>
        <source>Log in as this user.</source>
        <translation>Unter diesem Benutzernamen anmelden.</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Read the password from this open file descriptor, up to a line&apos;s end.</source>
        <translation>Das Passwort bis zum Zeilenende aus diesem offenen Dateideskriptor lesen.</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>A link or a file to open.</source>
        <translation>Ein Link oder eine Datei zum Öffnen.</translation>
    </message>
    <message>
        <source>--%1 needs a value.</source>
        <translation>--%1 braucht einen Wert.</translation>
    </message>
    <message>
        <source>--account-service needs a host and a port, for example localhost:5598.</source>
        <translation>--account-service braucht Rechner und Port, zum Beispiel localhost:5598.</translation>
    </message>
    <message>
        <source>The file %1 can not be read.</source>
        <translation>Die Datei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>--password-fd needs the number of an open file descriptor.</source>
        <translation>--password-fd braucht die Nummer eines offenen Dateideskriptors.</translation>
    </message>
    <message>
        <source>Only one link or file can be opened at a time.</source>
        <translation>Es kann immer nur ein Link oder eine Datei geöffnet werden.</translation>
    </message>
</context>
<context>
    <name>ConnectionGraphWidget</name>
    <message>
        <source>Nothing is being downloaded from the news servers.</source>
        <translation>Von den Newsservern wird gerade nichts heruntergeladen.</translation>
    </message>
    <message>
        <source>Downloading %1 per second from the news servers.</source>
        <translation>Von den Newsservern werden %1 pro Sekunde heruntergeladen.</translation>
    </message>
    <message>
        <source>Download rate</source>
        <translation>Downloadrate</translation>
    </message>
</context>
<context>
    <name>ConnectorPlugin</name>
    <message>
        <source>Logged in as %1</source>
        <translation>Angemeldet als %1</translation>
    </message>
    <message>
        <source>Not logged in</source>
        <translation>Nicht angemeldet</translation>
    </message>
</context>
<context>
    <name>DBUtils</name>
    <message>
        <source>the database is not open</source>
        <translation>Die Datenbank ist nicht geöffnet</translation>
    </message>
    <message>
        <source>the row to be changed is missing</source>
        <translation>Der zu ändernde Eintrag fehlt</translation>
    </message>
</context>
<context>
    <name>DatabaseGuard</name>
    <message>
        <source>%1 %2 is damaged, and nothing could be put in its place.</source>
        <translation>%1 %2 ist beschädigt und konnte nicht ersetzt werden.</translation>
    </message>
    <message>
        <source>%1 was damaged and there is no copy of it; the damaged file was kept as %2.</source>
        <translation>%1 war beschädigt, und es gibt keine Kopie davon; die beschädigte Datei wurde als %2 aufgehoben.</translation>
    </message>
    <message>
        <source>%1 was damaged; the copy of %2 is in use and the damaged file was kept as %3.</source>
        <translation>%1 war beschädigt; verwendet wird die Kopie vom %2, die beschädigte Datei wurde als %3 aufgehoben.</translation>
    </message>
    <message>
        <source>The bookmarks file</source>
        <translation>Die Lesezeichendatei</translation>
    </message>
    <message>
        <source>The messages file</source>
        <translation>Die Nachrichtendatei</translation>
    </message>
    <message>
        <source>%1 was missing; the copy of %2 is in use.</source>
        <translation>%1 fehlte; verwendet wird die Kopie vom %2.</translation>
    </message>
    <message>
        <source>%1 %2 is missing, and its copy could not be put in its place.</source>
        <translation>%1 %2 fehlt, und ihre Kopie konnte nicht an ihren Platz gebracht werden.</translation>
    </message>
</context>
<context>
    <name>DesktopEntry</name>
    <message>
        <source>Usenet Client</source>
        <translation>Usenet-Programm</translation>
    </message>
    <message>
        <source>Browse newsgroups and download from Usenet</source>
        <translation>In Newsgroups stöbern und aus dem Usenet herunterladen</translation>
    </message>
</context>
<context>
    <name>DesktopNotifier</name>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
</context>
<context>
    <name>DetailsDock</name>
    <message>
        <source>Open an NZB file to see what is in it.</source>
        <translation>Öffnen Sie eine NZB-Datei, um ihren Inhalt zu sehen.</translation>
    </message>
    <message>
        <source>Segments</source>
        <translation>Segmente</translation>
    </message>
    <message>
        <source>The link names no group of files.</source>
        <translation>Der Link nennt keine Dateigruppe.</translation>
    </message>
    <message>
        <source>%1 can not be the name of a group of files.</source>
        <translation>%1 kann nicht der Name einer Dateigruppe sein.</translation>
    </message>
    <message>
        <source>No provider plug-in is loaded that could be asked for %1.</source>
        <translation>Es ist keine Anbieter-Erweiterung geladen, bei der %1 erfragt werden könnte.</translation>
    </message>
    <message>
        <source>Log in to see what is in %1.</source>
        <translation>Melden Sie sich an, um den Inhalt von %1 zu sehen.</translation>
    </message>
    <message>
        <source>Reading %1…</source>
        <translation>%1 wird gelesen…</translation>
    </message>
    <message>
        <source>%1 can not be shown: %2</source>
        <translation>%1 kann nicht angezeigt werden: %2</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>1,000 bytes</source>
        <comment>as wide as a size usually gets</comment>
        <translation>1.000 Byte</translation>
    </message>
</context>
<context>
    <name>DetailsModel</name>
    <message>
        <source>(no subject)</source>
        <translation>(kein Betreff)</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Betreff</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Segments</source>
        <translation>Segmente</translation>
    </message>
    <message>
        <source>Newsgroups</source>
        <translation>Newsgroups</translation>
    </message>
    <message>
        <source>Posted</source>
        <translation>Gesendet</translation>
    </message>
</context>
<context>
    <name>DetailsTexts</name>
    <message>
        <source>at least %1</source>
        <comment>a size</comment>
        <translation>mindestens %1</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <comment>newsgroups</comment>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>Files: %1</source>
        <translation>Dateien: %1</translation>
    </message>
    <message>
        <source>Segments: %1</source>
        <translation>Segmente: %1</translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation>Größe: %1</translation>
    </message>
    <message>
        <source>Posted: %1</source>
        <translation>Gesendet: %1</translation>
    </message>
    <message>
        <source>Newsgroups: %1</source>
        <translation>Newsgroups: %1</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <comment>from one day to another</comment>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>DockTitleBar</name>
    <message>
        <source>Dock %1</source>
        <translation>Bereich „%1“ andocken</translation>
    </message>
    <message>
        <source>Float %1</source>
        <translation>Bereich „%1“ ablösen</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>Bereich „%1“ schließen</translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>&amp;Connections:</source>
        <translation>&amp;Verbindungen:</translation>
    </message>
    <message>
        <source>Automatic search:</source>
        <translation>Automatische Suche:</translation>
    </message>
    <message>
        <source>Your account allows %1.</source>
        <translation>Ihr Konto erlaubt %1.</translation>
    </message>
    <message>
        <source>What your account allows is known after the login.</source>
        <translation>Was Ihr Konto erlaubt, ist nach der Anmeldung bekannt.</translation>
    </message>
    <message numerus="yes">
        <source>every %n minutes</source>
        <translation>
            <numerusform>jede Minute</numerusform>
            <numerusform>alle %n Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>not yet known</source>
        <translation>noch nicht bekannt</translation>
    </message>
    <message>
        <source>Show a desktop &amp;notification for new messages</source>
        <translation>Bei neuen Nachrichten auf dem &amp;Bildschirm benachrichtigen</translation>
    </message>
</context>
<context>
    <name>HAboutDialog</name>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Version %1 for %2

A Usenet client: newsgroups, NZB files and your account.

Account service: %3 (%4)
Built with Qt %5. Published under the MIT licence.</source>
        <translation>Version %1 für %2

Ein Programm für das Usenet: Newsgroups, NZB-Dateien und Ihr Konto.

Kontodienst: %3 (%4)
Erstellt mit Qt %5. Veröffentlicht unter der MIT-Lizenz.</translation>
    </message>
</context>
<context>
    <name>HAccountStatsPlugin</name>
    <message>
        <source>Account Statistics of %1</source>
        <translation>Kontostatistik von %1</translation>
    </message>
</context>
<context>
    <name>HHomeWidget</name>
    <message>
        <source>Log In…</source>
        <translation>Anmelden…</translation>
    </message>
    <message>
        <source>Logging in…</source>
        <translation>Anmeldung läuft…</translation>
    </message>
    <message>
        <source>The account service can not be reached</source>
        <translation>Der Kontodienst ist nicht erreichbar</translation>
    </message>
    <message>
        <source>News servers: %1  ·  Connections: %2  ·  Since: %3</source>
        <translation>Newsserver: %1  ·  Verbindungen: %2  ·  Seit: %3</translation>
    </message>
</context>
<context>
    <name>HNewsgroupPanel</name>
    <message>
        <source>1,000 bytes</source>
        <comment>as wide as a size gets</comment>
        <translation>1.000 Byte</translation>
    </message>
    <message numerus="yes">
        <source>%Ln articles loaded…</source>
        <translation>
            <numerusform>%Ln Artikel geladen…</numerusform>
            <numerusform>%Ln Artikel geladen…</numerusform>
        </translation>
    </message>
    <message>
        <source>Loading articles…</source>
        <translation>Artikel werden geladen…</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln articles shown</source>
        <translation>
            <numerusform>%1 von %Ln Artikel angezeigt</numerusform>
            <numerusform>%1 von %Ln Artikeln angezeigt</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, older ones are on the server</source>
        <translation>%1, ältere liegen auf dem Server</translation>
    </message>
    <message>
        <source>There are no articles in this newsgroup.</source>
        <translation>In dieser Newsgroup gibt es keine Artikel.</translation>
    </message>
    <message>
        <source>There are no articles in these newsgroups.</source>
        <translation>In diesen Newsgroups gibt es keine Artikel.</translation>
    </message>
    <message>
        <source>All articles</source>
        <translation>Alle Artikel</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Texts</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Which articles are shown</source>
        <translation>Welche Artikel angezeigt werden</translation>
    </message>
    <message>
        <source>Articles</source>
        <translation>Artikel</translation>
    </message>
    <message>
        <source>Load the newest articles again</source>
        <translation>Die neuesten Artikel noch einmal laden</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Load More</source>
        <translation>Weitere laden</translation>
    </message>
</context>
<context>
    <name>HNewsgroupsPanel</name>
    <message numerus="yes">
        <source>%Ln newsgroups loaded…</source>
        <translation>
            <numerusform>%Ln Newsgroup geladen…</numerusform>
            <numerusform>%Ln Newsgroups geladen…</numerusform>
        </translation>
    </message>
    <message>
        <source>Loading the newsgroups…</source>
        <translation>Newsgroups werden geladen…</translation>
    </message>
    <message>
        <source>As of %1</source>
        <translation>Stand: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln newsgroups</source>
        <translation>
            <numerusform>%1 von %Ln Newsgroup</numerusform>
            <numerusform>%1 von %Ln Newsgroups</numerusform>
        </translation>
    </message>
    <message>
        <source>Log in to load the newsgroups.</source>
        <translation>Melden Sie sich an, um die Newsgroups zu laden.</translation>
    </message>
    <message>
        <source>The news server has no newsgroups.</source>
        <translation>Auf dem Newsserver gibt es keine Newsgroups.</translation>
    </message>
    <message>
        <source>Newsgroups</source>
        <translation>Newsgroups</translation>
    </message>
    <message>
        <source>Filter by words</source>
        <translation>Nach Wörtern filtern</translation>
    </message>
    <message>
        <source>Filter newsgroups</source>
        <translation>Newsgroups filtern</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Add to bookmarks…</source>
        <translation>Zu den Lesezeichen hinzufügen…</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Load the list of newsgroups again</source>
        <translation>Die Liste der Newsgroups noch einmal laden</translation>
    </message>
</context>
<context>
    <name>LinkOpener</name>
    <message>
        <source>This link was not opened, because it does not lead to a web page.</source>
        <translation>Dieser Link wurde nicht geöffnet, weil er nicht zu einer Webseite führt.</translation>
    </message>
    <message>
        <source>No web browser could be started.</source>
        <translation>Es konnte kein Webbrowser gestartet werden.</translation>
    </message>
</context>
<context>
    <name>LoadLine</name>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Loading</source>
        <translation>Ladevorgang</translation>
    </message>
</context>
<context>
    <name>LoginController</name>
    <message>
        <source>A password was given, but nobody said whose it is.</source>
        <translation>Es wurde ein Passwort angegeben, aber kein Benutzername dazu.</translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Log In</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>&amp;User name:</source>
        <translation>&amp;Benutzername:</translation>
    </message>
    <message>
        <source>&amp;Password:</source>
        <translation>&amp;Passwort:</translation>
    </message>
    <message>
        <source>The news server&apos;s reply:</source>
        <translation>Die Antwort des Newsservers:</translation>
    </message>
    <message>
        <source>Logging in…</source>
        <translation>Anmeldung läuft…</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Ha&amp;lvora</source>
        <translation>Hal&amp;vora</translation>
    </message>
    <message>
        <source>&amp;Settings…</source>
        <translation>&amp;Einstellungen…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Account</source>
        <translation>&amp;Konto</translation>
    </message>
    <message>
        <source>Log &amp;In…</source>
        <translation>&amp;Anmelden…</translation>
    </message>
    <message>
        <source>Log &amp;Out</source>
        <translation>A&amp;bmelden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Save a &amp;Report…</source>
        <translation>&amp;Bericht speichern…</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Über &amp;Qt</translation>
    </message>
    <message>
        <source>&amp;Open NZB File…</source>
        <translation>&amp;NZB-Datei öffnen…</translation>
    </message>
</context>
<context>
    <name>MessageNotifier</name>
    <message numerus="yes">
        <source>%Ln new messages</source>
        <translation>
            <numerusform>Neue Nachricht</numerusform>
            <numerusform>%Ln neue Nachrichten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NewsFailureText</name>
    <message>
        <source>You are not logged in.</source>
        <translation>Sie sind nicht angemeldet.</translation>
    </message>
    <message>
        <source>The news server can not be reached.</source>
        <translation>Der Newsserver ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The news server refused.</source>
        <translation>Der Newsserver hat abgelehnt.</translation>
    </message>
    <message>
        <source>The news server said: %1</source>
        <translation>Der Newsserver meldet: %1</translation>
    </message>
    <message>
        <source>The connection to the news server broke.</source>
        <translation>Die Verbindung zum Newsserver ist abgebrochen.</translation>
    </message>
    <message>
        <source>Loading was interrupted.</source>
        <translation>Das Laden wurde unterbrochen.</translation>
    </message>
    <message>
        <source>The program is being closed.</source>
        <translation>Das Programm wird gerade beendet.</translation>
    </message>
    <message>
        <source>All connections of the account are in use. Next attempt in %1 s.</source>
        <translation>Alle Verbindungen des Kontos sind belegt. Nächster Versuch in %1 s.</translation>
    </message>
</context>
<context>
    <name>NewsgroupListModel</name>
    <message>
        <source>Bookmarked</source>
        <translation>Mit Lesezeichen</translation>
    </message>
    <message>
        <source>Newsgroup</source>
        <translation>Newsgroup</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
</context>
<context>
    <name>NzbFailure</name>
    <message>
        <source>There is no file %1; it may have been moved or deleted.</source>
        <translation>Die Datei %1 gibt es nicht; vielleicht wurde sie verschoben oder gelöscht.</translation>
    </message>
    <message>
        <source>%1 may not be read; ask its owner for the permission.</source>
        <translation>%1 darf nicht gelesen werden; bitten Sie den Eigentümer um die Erlaubnis.</translation>
    </message>
    <message>
        <source>%1 is a folder; open one of the NZB files in it.</source>
        <translation>%1 ist ein Ordner; öffnen Sie eine der NZB-Dateien darin.</translation>
    </message>
    <message>
        <source>%1 is no ordinary file and was not opened.</source>
        <translation>%1 ist keine gewöhnliche Datei und wurde nicht geöffnet.</translation>
    </message>
    <message>
        <source>%1 could not be read: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is too large for an NZB file and was not read.</source>
        <translation>%1 ist für eine NZB-Datei zu groß und wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>%1 is empty; download it again.</source>
        <translation>%1 ist leer; laden Sie die Datei noch einmal herunter.</translation>
    </message>
    <message>
        <source>%1 is not an NZB file.</source>
        <translation>%1 ist keine NZB-Datei.</translation>
    </message>
    <message>
        <source>%1 has declarations that no NZB file needs and that may do harm, so it was not read.</source>
        <translation>%1 enthält Deklarationen, die keine NZB-Datei braucht und die schaden können, und wurde deshalb nicht gelesen.</translation>
    </message>
    <message>
        <source>%1 is damaged in line %2; download it again.</source>
        <translation>%1 ist in Zeile %2 beschädigt; laden Sie die Datei noch einmal herunter.</translation>
    </message>
    <message>
        <source>%1 breaks off in line %2; download it again.</source>
        <translation>%1 bricht in Zeile %2 ab; laden Sie die Datei noch einmal herunter.</translation>
    </message>
    <message>
        <source>%1 lists more than can be shown.</source>
        <translation>%1 führt mehr auf, als angezeigt werden kann.</translation>
    </message>
    <message>
        <source>%1 is an NZB file, but it lists no files.</source>
        <translation>%1 ist eine NZB-Datei, führt aber keine Dateien auf.</translation>
    </message>
</context>
<context>
    <name>OutsideLink</name>
    <message>
        <source>The file was not opened, because its name can not be used.</source>
        <translation>Die Datei wurde nicht geöffnet, weil ihr Name nicht verwendbar ist.</translation>
    </message>
    <message>
        <source>The link was not opened, because it is damaged.</source>
        <translation>Der Link wurde nicht geöffnet, weil er beschädigt ist.</translation>
    </message>
    <message>
        <source>The link was not opened, because it leads neither to a group of files nor to a file on this computer.</source>
        <translation>Der Link wurde nicht geöffnet, weil er weder zu einer Dateigruppe noch zu einer Datei auf diesem Rechner führt.</translation>
    </message>
    <message>
        <source>The link was not opened, because it does not name a group of files.</source>
        <translation>Der Link wurde nicht geöffnet, weil er keine Dateigruppe nennt.</translation>
    </message>
</context>
<context>
    <name>OwnPrivateData</name>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>Traffic history</source>
        <translation>Datenverkehr der Vergangenheit</translation>
    </message>
    <message>
        <source>What this program counted by day and month. The account service keeps its own counts.</source>
        <translation>Was dieses Programm nach Tagen und Monaten gezählt hat. Der Kontodienst behält seine eigenen Zahlen.</translation>
    </message>
    <message>
        <source>Kept list of newsgroups</source>
        <translation>Aufbewahrte Liste der Newsgroups</translation>
    </message>
    <message>
        <source>The list of the news server&apos;s newsgroups. The next login loads it again; your bookmarks stay.</source>
        <translation>Die Liste der Newsgroups des Newsservers. Die nächste Anmeldung lädt sie wieder; Ihre Lesezeichen bleiben.</translation>
    </message>
    <message>
        <source>Kept password</source>
        <translation>Aufbewahrtes Passwort</translation>
    </message>
    <message>
        <source>The password in the desktop&apos;s keyring. Your user name stays, and so does the password of another account until it logs out.</source>
        <translation>Das Passwort im Schlüsselbund des Systems. Ihr Benutzername bleibt, und ebenso das Passwort eines anderen Kontos, bis es sich abmeldet.</translation>
    </message>
    <message>
        <source>The messages of every account, their dated copies and files put aside as damaged. Those that you deleted before stay away; the account service may send the others again.</source>
        <translation>Die Nachrichten aller Konten, ihre datierten Kopien und als beschädigt beiseitegelegte Dateien. Die Sie vorher gelöscht haben, bleiben weg; die übrigen kann der Kontodienst erneut senden.</translation>
    </message>
</context>
<context>
    <name>PageArea</name>
    <message>
        <source>Home</source>
        <translation>Startseite</translation>
    </message>
</context>
<context>
    <name>PageCloseButton</name>
    <message>
        <source>Close the page</source>
        <translation>Seite schließen</translation>
    </message>
</context>
<context>
    <name>Picture</name>
    <message>
        <source>No user name or no password is known.</source>
        <translation>Benutzername oder Passwort ist nicht bekannt.</translation>
    </message>
    <message>
        <source>It took too long.</source>
        <translation>Es hat zu lange gedauert.</translation>
    </message>
</context>
<context>
    <name>PluginLoader</name>
    <message>
        <source>The plug-in %1 is not there.</source>
        <translation>Die Erweiterung %1 ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>%1 is not a plug-in that can be loaded.</source>
        <translation>%1 ist keine Erweiterung, die geladen werden kann.</translation>
    </message>
    <message>
        <source>The plug-in %1 was made for another version of Halvora.</source>
        <translation>Die Erweiterung %1 ist für eine andere Version von Halvora bestimmt.</translation>
    </message>
</context>
<context>
    <name>PrivacyPage</name>
    <message>
        <source>No part of the program keeps private data.</source>
        <translation>Kein Teil des Programms bewahrt private Daten auf.</translation>
    </message>
    <message>
        <source>What is deleted when private data is cleared:</source>
        <translation>Was beim Löschen privater Daten entfernt wird:</translation>
    </message>
    <message>
        <source>Cl&amp;ear private data…</source>
        <translation>Private Daten &amp;löschen…</translation>
    </message>
</context>
<context>
    <name>ProfileLock</name>
    <message>
        <source>Halvora is running with the folder %1 on the computer %2; if it is not, remove the file %3.</source>
        <translation>Halvora läuft mit dem Ordner %1 auf dem Rechner %2; ist das nicht der Fall, entfernen Sie die Datei %3.</translation>
    </message>
    <message>
        <source>Halvora is running with the folder %1 already; use its window, or start with another profile.</source>
        <translation>Halvora läuft mit dem Ordner %1 bereits; verwenden Sie dessen Fenster, oder starten Sie mit einem anderen Profil.</translation>
    </message>
</context>
<context>
    <name>RequestFailure</name>
    <message>
        <source>The program is being closed.</source>
        <translation>Das Programm wird gerade beendet.</translation>
    </message>
    <message>
        <source>The account was logged out.</source>
        <translation>Das Konto wurde abgemeldet.</translation>
    </message>
    <message>
        <source>No account service is reachable.</source>
        <translation>Es ist kein Kontodienst erreichbar.</translation>
    </message>
    <message>
        <source>The account service can not be reached.</source>
        <translation>Der Kontodienst ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The account service does not answer.</source>
        <translation>Der Kontodienst antwortet nicht.</translation>
    </message>
    <message>
        <source>The account service can not prove its identity, so nothing was sent to it.</source>
        <translation>Der Kontodienst kann seine Identität nicht nachweisen, deshalb wurde ihm nichts gesendet.</translation>
    </message>
    <message>
        <source>The account service answered with status %1 and could not be used.</source>
        <translation>Der Kontodienst hat mit dem Status %1 geantwortet und war nicht verwendbar.</translation>
    </message>
    <message>
        <source>The account service sent a reply that is too large.</source>
        <translation>Der Kontodienst hat eine zu große Antwort gesendet.</translation>
    </message>
    <message>
        <source>The account service&apos;s reply broke off.</source>
        <translation>Die Antwort des Kontodienstes ist abgebrochen.</translation>
    </message>
    <message>
        <source>No news server could be reached to test the user name and the password.</source>
        <translation>Zum Prüfen von Benutzername und Passwort war kein Newsserver erreichbar.</translation>
    </message>
    <message>
        <source>The news server did not accept the user name and the password.</source>
        <translation>Der Newsserver hat Benutzername und Passwort nicht angenommen.</translation>
    </message>
    <message>
        <source>The account service did not accept the user name and the password.</source>
        <translation>Der Kontodienst hat Benutzername und Passwort nicht angenommen.</translation>
    </message>
    <message>
        <source>The account service asks to log in again.</source>
        <translation>Der Kontodienst verlangt eine neue Anmeldung.</translation>
    </message>
    <message>
        <source>The account service refused the request.</source>
        <translation>Der Kontodienst hat die Anfrage abgelehnt.</translation>
    </message>
    <message>
        <source>The user name or the password holds a character that can not be sent.</source>
        <translation>Benutzername oder Passwort enthält ein Zeichen, das nicht gesendet werden kann.</translation>
    </message>
    <message>
        <source>The account service&apos;s reply cannot be read.</source>
        <translation>Die Antwort des Kontodienstes ist nicht lesbar.</translation>
    </message>
    <message>
        <source>A request holds a character that cannot be sent, so it was not sent.</source>
        <translation>Eine Anfrage enthält ein Zeichen, das nicht gesendet werden kann, und wurde nicht gesendet.</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Reset Settings</source>
        <translation>Einstellungen zurücksetzen</translation>
    </message>
    <message>
        <source>Do you want all settings to be what they were at first?</source>
        <translation>Möchten Sie alle Einstellungen auf ihren ursprünglichen Stand zurücksetzen?</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>&amp;Allgemein</translation>
    </message>
    <message>
        <source>&amp;Privacy</source>
        <translation>&amp;Datenschutz</translation>
    </message>
    <message>
        <source>&amp;Reset settings</source>
        <translation>Einstellungen &amp;zurücksetzen</translation>
    </message>
</context>
<context>
    <name>SingleInstance</name>
    <message>
        <source>The link or file can not be opened, because its name is too long or damaged.</source>
        <translation>Der Link oder die Datei kann nicht geöffnet werden, weil der Name zu lang oder beschädigt ist.</translation>
    </message>
</context>
<context>
    <name>StatsDialog</name>
    <message>
        <source>Traffic Statistics</source>
        <translation>Statistik des Datenverkehrs</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>This month</source>
        <translation>Dieser Monat</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation>Letzter Monat</translation>
    </message>
    <message>
        <source>In total</source>
        <translation>Insgesamt</translation>
    </message>
    <message>
        <source>By &amp;day</source>
        <translation>Nach &amp;Tagen</translation>
    </message>
    <message>
        <source>By &amp;month</source>
        <translation>Nach &amp;Monaten</translation>
    </message>
    <message>
        <source>Nothing has been downloaded yet.
What you download will show up here, day by day.</source>
        <translation>Bisher wurde nichts heruntergeladen.
Was Sie herunterladen, erscheint hier Tag für Tag.</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Verbinden…</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>Verbindung verloren</translation>
    </message>
</context>
<context>
    <name>StringFormat</name>
    <message>
        <source>%1 KiB</source>
        <translation>%1 KiB</translation>
    </message>
    <message>
        <source>%1 MiB</source>
        <translation>%1 MiB</translation>
    </message>
    <message>
        <source>%1 GiB</source>
        <translation>%1 GiB</translation>
    </message>
    <message>
        <source>%1 TiB</source>
        <translation>%1 TiB</translation>
    </message>
    <message>
        <source>%1 PiB</source>
        <translation>%1 PiB</translation>
    </message>
    <message>
        <source>%1 EiB</source>
        <translation>%1 EiB</translation>
    </message>
    <message>
        <source>%1 kB</source>
        <translation>%1 kB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1 PB</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1 EB</translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>exactly one</comment>
        <translation>
            <numerusform>%1 Byte</numerusform>
            <numerusform>%1 Byte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 bytes</source>
        <comment>any number but one</comment>
        <translation>
            <numerusform>%1 Byte</numerusform>
            <numerusform>%1 Byte</numerusform>
        </translation>
    </message>
    <message>
        <source>%1/s</source>
        <comment>an amount each second</comment>
        <translation>%1/s</translation>
    </message>
</context>
<context>
    <name>TrafficChart</name>
    <message>
        <source>Traffic by day</source>
        <translation>Datenverkehr nach Tagen</translation>
    </message>
    <message>
        <source>Traffic by month</source>
        <translation>Datenverkehr nach Monaten</translation>
    </message>
    <message>
        <source>No traffic</source>
        <translation>Kein Datenverkehr</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>A month and its year, 1 and 2 in that order</extracomment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>1 is a day or a month, 2 is an amount such as &quot;1.5 GiB&quot;</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>d MMM</source>
        <extracomment>The day and month below a bar; the letters are those of QDate::toString</extracomment>
        <translation>d. MMM</translation>
    </message>
</context>
<context>
    <name>UpdateNotice</name>
    <message>
        <source>Newer Version</source>
        <translation>Neuere Version</translation>
    </message>
    <message>
        <source>A newer version is available.</source>
        <translation>Eine neuere Version ist verfügbar.</translation>
    </message>
    <message>
        <source>Version %1 is available.</source>
        <translation>Version %1 ist verfügbar.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Show what is new in the browser</source>
        <translation>Im Browser anzeigen, was neu ist</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation>Anordnung &amp;zurücksetzen</translation>
    </message>
</context>
<context>
    <name>WriteAlarm</name>
    <message>
        <source>Bookmarks are not being saved: %1</source>
        <translation>Die Lesezeichen werden nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>the folder %1 is missing</source>
        <translation>Der Ordner %1 fehlt</translation>
    </message>
    <message>
        <source>the folder %1 can not be written</source>
        <translation>In den Ordner %1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the file %1 can not be written</source>
        <translation>In die Datei %1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>%1 is not a file</source>
        <translation>%1 ist keine Datei</translation>
    </message>
    <message>
        <source>the file %1 was removed or replaced; please start the program again</source>
        <translation>Die Datei %1 wurde entfernt oder ersetzt; bitte starten Sie das Programm neu</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>Der Datenträger ist voll</translation>
    </message>
    <message>
        <source>the database does not say why</source>
        <translation>Die Datenbank nennt keinen Grund</translation>
    </message>
    <message>
        <source>Changes made since %1 are not saved.</source>
        <translation>Änderungen seit %1 sind nicht gespeichert.</translation>
    </message>
    <message>
        <source>Messages are not being saved: %1</source>
        <translation>Die Nachrichten werden nicht gespeichert: %1</translation>
    </message>
</context>
</TS>
