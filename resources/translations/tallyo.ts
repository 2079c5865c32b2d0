<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en">
<context>
    <name>BusyIndicator</name>
    <message>
        <source>Waiting for an answer</source>
        <extracomment>What the moving bar is called when it is read aloud</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DailyStatusPanel</name>
    <message>
        <source>Link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Month</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoadingPanel</name>
    <message>
        <source>Tallyo is starting ...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MonthModel</name>
    <message>
        <source>1 hit</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 hits</source>
        <extracomment>The number is an argument; it chooses the form of the word</extracomment>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2:00 to %3:00: %4</source>
        <extracomment>A day and month, the hour that begins, the one that ends, and &quot;12 hits&quot;</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2 hours, %3</source>
        <extracomment>Read aloud: a day of the month, an hour of the day, and a number of hits</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>A day and its month: 15 Nov</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A month and &quot;12 hits&quot;</extracomment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MonthSumsModel</name>
    <message>
        <source>Sums of the days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A day with its month, and &quot;12 hits&quot;</extracomment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PageLoader</name>
    <message>
        <source>It is longer than 16 MiB.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is no web address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It lies outside Tallyo&apos;s own folder.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportView</name>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>Tallyo is running in %1 without a window; end it first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the folder %1 cannot be written; nothing will be kept</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TextPanel</name>
    <message>
        <source>Text</source>
        <extracomment>What the field on the text screen is called when it is read aloud</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save As...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be written: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WebPagePanel</name>
    <message>
        <source>&amp;Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open in b&amp;rowser</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Web page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WebPageViewer</name>
    <message>
        <source>It is no page, but &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This page cannot be shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is too long or too intricate to be shown here.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message>
        <source>Menus</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
