<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BusyIndicator</name>
    <message>
        <source>Waiting for an answer</source>
        <extracomment>What the moving bar is called when it is read aloud</extracomment>
        <translation>Wartet auf eine Antwort</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>DailyStatusPanel</name>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
</context>
<context>
    <name>LoadingPanel</name>
    <message>
        <source>Tallyo is starting ...</source>
        <translation>Tallyo startet ...</translation>
    </message>
</context>
<context>
    <name>MonthModel</name>
    <message>
        <source>1 hit</source>
        <translation>1 Zugriff</translation>
    </message>
    <message numerus="yes">
        <source>%1 hits</source>
        <extracomment>The number is an argument; it chooses the form of the word</extracomment>
        <translation>
            <numerusform>%1 Zugriff</numerusform>
            <numerusform>%1 Zugriffe</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2:00 to %3:00: %4</source>
        <extracomment>A day and month, the hour that begins, the one that ends, and &quot;12 hits&quot;</extracomment>
        <translation>%1, %2:00 bis %3:00 Uhr: %4</translation>
    </message>
    <message>
        <source>%1, %2 hours, %3</source>
        <extracomment>Read aloud: a day of the month, an hour of the day, and a number of hits</extracomment>
        <translation>%1., %2 Uhr, %3</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>A day and its month: 15 Nov</extracomment>
        <translation>%1. %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A month and &quot;12 hits&quot;</extracomment>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>MonthSumsModel</name>
    <message>
        <source>Sums of the days</source>
        <translation>Tagessummen</translation>
    </message>
    <message>
        <source>Sum</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A day with its month, and &quot;12 hits&quot;</extracomment>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>PageLoader</name>
    <message>
        <source>It is longer than 16 MiB.</source>
        <translation>Das Dokument ist größer als 16 MiB.</translation>
    </message>
    <message>
        <source>It is no web address.</source>
        <translation>Das ist keine Webadresse.</translation>
    </message>
    <message>
        <source>It lies outside Tallyo&apos;s own folder.</source>
        <translation>Die Datei liegt außerhalb der Ordner von Tallyo.</translation>
    </message>
</context>
<context>
    <name>ReportView</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>Tallyo is running in %1 without a window; end it first</source>
        <translation>Tallyo läuft in %1 ohne Fenster; bitte zuerst beenden</translation>
    </message>
    <message>
        <source>the folder %1 cannot be written; nothing will be kept</source>
        <translation>in den Ordner %1 kann nicht geschrieben werden; nichts bleibt erhalten</translation>
    </message>
</context>
<context>
    <name>TextPanel</name>
    <message>
        <source>Text</source>
        <extracomment>What the field on the text screen is called when it is read aloud</extracomment>
        <translation>Text</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>&amp;Save As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation>Textdateien (*.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The file cannot be written: %1</source>
        <translation>Die Datei kann nicht geschrieben werden: %1</translation>
    </message>
</context>
<context>
    <name>WebPagePanel</name>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Open in b&amp;rowser</source>
        <translation>Im B&amp;rowser öffnen</translation>
    </message>
    <message>
        <source>Web page</source>
        <translation>Webseite</translation>
    </message>
    <message>
        <source>Loading %1</source>
        <translation>%1 wird geladen</translation>
    </message>
</context>
<context>
    <name>WebPageViewer</name>
    <message>
        <source>It is no page, but &quot;%1&quot;.</source>
        <translation>Das ist keine Seite, sondern „%1“.</translation>
    </message>
    <message>
        <source>This page cannot be shown</source>
        <translation>Diese Seite kann nicht angezeigt werden</translation>
    </message>
    <message>
        <source>It is too long or too intricate to be shown here.</source>
        <translation>Das Dokument ist zu lang oder zu verschachtelt, um hier gezeigt zu werden.</translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message>
        <source>Menus</source>
        <translation>Menüs</translation>
    </message>
</context>
</TS>
