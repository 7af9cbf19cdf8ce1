<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>postwright::addressbook::AddEntries</name>
    <message numerus="yes">
        <source>Add %n entries</source>
        <translation>
            <numerusform>Add %n entry</numerusform>
            <numerusform>Add %n entries</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::AskDialog</name>
    <message numerus="yes">
        <source>%n of the addresses that are shown were turned down. Print the list, or copy it into a mail, and ask the people who know.</source>
        <translation>
            <numerusform>%n of the addresses that are shown was turned down. Print the list, or copy it into a mail, and ask the people who know.</numerusform>
            <numerusform>%n of the addresses that are shown were turned down. Print the list, or copy it into a mail, and ask the people who know.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::BarcodeFields</name>
    <message numerus="yes">
        <source>%1 of %n labels have a ZIP+4 and get a barcode.</source>
        <translation>
            <numerusform>%1 of %n label has a ZIP+4 and gets a barcode.</numerusform>
            <numerusform>%1 of %n labels have a ZIP+4 and get a barcode.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::BookCounts</name>
    <message numerus="yes">
        <source>%n entries</source>
        <translation>
            <numerusform>%n entry</numerusform>
            <numerusform>%n entries</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n entries</source>
        <translation>
            <numerusform>%1 of %n entry</numerusform>
            <numerusform>%1 of %n entries</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>%n selected</numerusform>
            <numerusform>%n selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to check</source>
        <translation>
            <numerusform>%n to check</numerusform>
            <numerusform>%n to check</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n failed</numerusform>
            <numerusform>%n failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n checked</source>
        <translation>
            <numerusform>%n checked</numerusform>
            <numerusform>%n checked</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::BookDocument</name>
    <message numerus="yes">
        <source>Merge %n entries</source>
        <translation>
            <numerusform>Merge %n entry</numerusform>
            <numerusform>Merge %n entries</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::ChangeLabels</name>
    <message numerus="yes">
        <source>Correct %n addresses</source>
        <translation>
            <numerusform>Correct %n address</numerusform>
            <numerusform>Correct %n addresses</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::CsvFile</name>
    <message numerus="yes">
        <source>In %n rows a quotation mark is opened and not closed, first on line %1. Each was read to the end of its line; look at them before you print.</source>
        <translation>
            <numerusform>In %n row, on line %1, a quotation mark is opened and not closed. It was read to the end of its line; look at it before you print.</numerusform>
            <numerusform>In %n rows a quotation mark is opened and not closed, first on line %1. Each was read to the end of its line; look at them before you print.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::EntryModel</name>
    <message numerus="yes">
        <source>%n at this address</source>
        <translation>
            <numerusform>%n at this address</numerusform>
            <numerusform>%n at this address</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::EntryPanel</name>
    <message numerus="yes">
        <source>%n entries are selected.</source>
        <translation>
            <numerusform>%n entry is selected.</numerusform>
            <numerusform>%n entries are selected.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::FileController</name>
    <message numerus="yes">
        <source>%n entries exported to “%1”.</source>
        <translation>
            <numerusform>%n entry exported to “%1”.</numerusform>
            <numerusform>%n entries exported to “%1”.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::FixController</name>
    <message numerus="yes">
        <source>%n addresses corrected.</source>
        <translation>
            <numerusform>%n address corrected.</numerusform>
            <numerusform>%n addresses corrected.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already right.</source>
        <translation>
            <numerusform>%n already right.</numerusform>
            <numerusform>%n already right.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of these in the chosen form now.</source>
        <translation>
            <numerusform>%n of these in the chosen form now.</numerusform>
            <numerusform>%n of these in the chosen form now.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed.</source>
        <translation>
            <numerusform>%n failed.</numerusform>
            <numerusform>%n failed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n well written, but not confirmed.</source>
        <translation>
            <numerusform>%n well written, but not confirmed.</numerusform>
            <numerusform>%n well written, but not confirmed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n checked before got no answer.</source>
        <translation>
            <numerusform>%n checked before got no answer.</numerusform>
            <numerusform>%n checked before got no answer.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::FixDialog</name>
    <message numerus="yes">
        <source>&amp;Fix %n Addresses…</source>
        <translation>
            <numerusform>&amp;Fix %n Address…</numerusform>
            <numerusform>&amp;Fix %n Addresses…</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n are skipped: checked lately, or without an address.</source>
        <translation>
            <numerusform>%n is skipped: checked lately, or without an address.</numerusform>
            <numerusform>%n are skipped: checked lately, or without an address.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::LabelSheet</name>
    <message numerus="yes">
        <source>%1: %2 x %3 %4, %n a sheet</source>
        <translation>
            <numerusform>%1: %2 x %3 %4, %n a sheet</numerusform>
            <numerusform>%1: %2 x %3 %4, %n a sheet</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::MergeDialog</name>
    <message numerus="yes">
        <source>One entry with this label takes the place of %n. What else the file holds of the others, such as telephone numbers, goes with them; it can be undone.</source>
        <translation>
            <numerusform>One entry with this label takes the place of %n. What else the file holds of the others, such as telephone numbers, goes with them; it can be undone.</numerusform>
            <numerusform>One entry with this label takes the place of %n. What else the file holds of the others, such as telephone numbers, goes with them; it can be undone.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::PresortDialog</name>
    <message numerus="yes">
        <source>%n pieces, by the first three digits of their ZIP codes.</source>
        <translation>
            <numerusform>%n piece, by the first three digits of its ZIP code.</numerusform>
            <numerusform>%n pieces, by the first three digits of their ZIP codes.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::PrintDialog</name>
    <message numerus="yes">
        <source>%n labels sent to the printer.</source>
        <translation>
            <numerusform>%n label sent to the printer.</numerusform>
            <numerusform>%n labels sent to the printer.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n labels to print.</source>
        <translation>
            <numerusform>%n label to print.</numerusform>
            <numerusform>%n labels to print.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n left out: the address was refused.</source>
        <translation>
            <numerusform>%n left out: the address was refused.</numerusform>
            <numerusform>%n left out: the address was refused.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n left out: no address.</source>
        <translation>
            <numerusform>%n left out: no address.</numerusform>
            <numerusform>%n left out: no address.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Print %n labels whose address was refused?</source>
        <translation>
            <numerusform>Print %n label whose address was refused?</numerusform>
            <numerusform>Print %n labels whose address was refused?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n labels do not fit, even in 7-point type.</source>
        <translation>
            <numerusform>%n label does not fit, even in 7-point type.</numerusform>
            <numerusform>%n labels do not fit, even in 7-point type.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n labels saved to “%1”.</source>
        <translation>
            <numerusform>%n label saved to “%1”.</numerusform>
            <numerusform>%n labels saved to “%1”.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::RemoveEntries</name>
    <message numerus="yes">
        <source>Remove %n entries</source>
        <translation>
            <numerusform>Remove %n entry</numerusform>
            <numerusform>Remove %n entries</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::RowEntries</name>
    <message numerus="yes">
        <source>%n labels could not be divided into the columns of the file. Each stands whole in one cell, line below line; nothing is lost.</source>
        <translation>
            <numerusform>%n label could not be divided into the columns of the file. It stands whole in one cell, line below line; nothing is lost.</numerusform>
            <numerusform>%n labels could not be divided into the columns of the file. Each stands whole in one cell, line below line; nothing is lost.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::SheetFields</name>
    <message numerus="yes">
        <source>&amp;Also %n labels whose address was refused</source>
        <translation>
            <numerusform>&amp;Also %n label whose address was refused</numerusform>
            <numerusform>&amp;Also %n labels whose address was refused</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::StreetsDialog</name>
    <message numerus="yes">
        <source>About %n minutes are left.</source>
        <translation>
            <numerusform>About %n minute is left.</numerusform>
            <numerusform>About %n minutes are left.</numerusform>
        </translation>
    </message>
</context>
</TS>
