<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name></name>
    <message id="SProcessing">
        <source>Processing…</source>
        <extracomment>Stands in place of the corrected address until the service has answered.</extracomment>
        <translation>Processing…</translation>
    </message>
</context>
</TS>
