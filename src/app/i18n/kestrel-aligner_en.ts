<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>BinRow</name>
    <message numerus="yes">
        <source>%n clip(s)</source>
        <translation>
            <numerusform>%n clip</numerusform>
            <numerusform>%n clips</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n track(s)</source>
        <translation>
            <numerusform>%n track</numerusform>
            <numerusform>%n tracks</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FinishedView</name>
    <message numerus="yes">
        <source>%n file(s) not written</source>
        <translation>
            <numerusform>%n file not written</numerusform>
            <numerusform>%n files not written</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GroupTab</name>
    <message numerus="yes">
        <source>%1 · %n recording(s)</source>
        <translation>
            <numerusform>%1 · %n recording</numerusform>
            <numerusform>%1 · %n recordings</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordingPanel</name>
    <message numerus="yes">
        <source>%n recording(s)</source>
        <translation>
            <numerusform>%n recording</numerusform>
            <numerusform>%n recordings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n device(s)</source>
        <translation>
            <numerusform>%n device</numerusform>
            <numerusform>%n devices</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::DocumentTexts</name>
    <message numerus="yes">
        <source>%n timeline(s)</source>
        <translation>
            <numerusform>%n timeline</numerusform>
            <numerusform>%n timelines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n with recordings without a place</source>
        <translation>
            <numerusform>%n with recordings without a place</numerusform>
            <numerusform>%n with recordings without a place</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::MediaCollector</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ResultTexts</name>
    <message numerus="yes">
        <source>%1 of %n recordings synchronised</source>
        <translation>
            <numerusform>%1 of %n recording synchronised</numerusform>
            <numerusform>%1 of %n recordings synchronised</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 in %n groups</source>
        <translation>
            <numerusform>%1 in %n group</numerusform>
            <numerusform>%1 in %n groups</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to look at</source>
        <translation>
            <numerusform>%n to look at</numerusform>
            <numerusform>%n to look at</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::RunSession</name>
    <message numerus="yes">
        <source>about %n minute(s) left</source>
        <translation>
            <numerusform>about %n minute left</numerusform>
            <numerusform>about %n minutes left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::SyncSettings</name>
    <message numerus="yes">
        <source>%n program(s)</source>
        <translation>
            <numerusform>%n program</numerusform>
            <numerusform>%n programs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::Workspace</name>
    <message numerus="yes">
        <source>%n recording(s) could not be found again</source>
        <translation>
            <numerusform>%n recording could not be found again</numerusform>
            <numerusform>%n recordings could not be found again</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>(%n more among the notes)</source>
        <translation>
            <numerusform>(%n more among the notes)</numerusform>
            <numerusform>(%n more among the notes)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>main</name>
    <message numerus="yes">
        <source>Take all %n recording(s) off the list?</source>
        <translation>
            <numerusform>Take all %n recording off the list?</numerusform>
            <numerusform>Take all %n recordings off the list?</numerusform>
        </translation>
    </message>
</context>
</TS>
