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
    <message id="SWindowTitle">
        <source>Fix Addresses</source>
        <extracomment>Title of the batch window.</extracomment>
        <translation>Fix Addresses</translation>
    </message>
    <message id="SAddressesName">
        <source>Addresses</source>
        <extracomment>Spoken name of the table of addresses.</extracomment>
        <translation>Addresses</translation>
    </message>
    <message id="SColumnAddress">
        <source>Address as Typed</source>
        <extracomment>Column of the table.</extracomment>
        <translation>Address as Typed</translation>
    </message>
    <message id="SColumnFixed">
        <source>Address as Fixed</source>
        <extracomment>Column of the table.</extracomment>
        <translation>Address as Fixed</translation>
    </message>
    <message id="SColumnStatus">
        <source>Status</source>
        <extracomment>Column of the table.</extracomment>
        <translation>Status</translation>
    </message>
    <message id="SStatusUnchanged">
        <source>Unchanged</source>
        <extracomment>Status of an address that the service found right.</extracomment>
        <translation>Unchanged</translation>
    </message>
    <message id="SStatusFixed">
        <source>Fixed</source>
        <extracomment>Status of an address that was corrected.</extracomment>
        <translation>Fixed</translation>
    </message>
    <message id="SStatusMultiple">
        <source>To Choose</source>
        <extracomment>Status of an address for which the service knows several.</extracomment>
        <translation>To Choose</translation>
    </message>
    <message id="SStatusError">
        <source>Error</source>
        <extracomment>Status of an address that failed.</extracomment>
        <translation>Error</translation>
    </message>
    <message id="SStatusNotChecked">
        <source>Not Checked</source>
        <extracomment>Status of an address that was not judged: the service or the network failed.</extracomment>
        <translation>Not Checked</translation>
    </message>
    <message id="SFilterName">
        <source>Show addresses that are</source>
        <extracomment>Spoken name of the filter.</extracomment>
        <translation>Show addresses that are</translation>
    </message>
    <message id="SFilterUnchanged">
        <source>&amp;Unchanged</source>
        <extracomment>Segment of the filter; the others follow.</extracomment>
        <translation>&amp;Unchanged</translation>
    </message>
    <message id="SFilterFixed">
        <source>&amp;Fixed</source>
        <translation>&amp;Fixed</translation>
    </message>
    <message id="SFilterMultiple">
        <source>&amp;To Choose</source>
        <translation>&amp;To Choose</translation>
    </message>
    <message id="SFilterError">
        <source>&amp;Errors</source>
        <translation>&amp;Errors</translation>
    </message>
    <message id="SFilterCount">
        <source>%@  %@</source>
        <extracomment>Caption of a segment: its name and its count.</extracomment>
        <translation>%@  %@</translation>
    </message>
    <message id="SHintBlank">
        <source>No text: applying would empty the entry</source>
        <extracomment>Stands in place of an empty corrected address.</extracomment>
        <translation>No text: applying would empty the entry</translation>
    </message>
    <message id="SHintMultiple" numerus="yes">
        <source>%n addresses to choose from</source>
        <extracomment>Stands in place of the corrected address.</extracomment>
        <translation>
            <numerusform>%n address to choose from</numerusform>
            <numerusform>%n addresses to choose from</numerusform>
        </translation>
    </message>
    <message id="SApply" numerus="yes">
        <source>&amp;Apply %n Corrections</source>
        <extracomment>Button that writes the corrected addresses.</extracomment>
        <translation>
            <numerusform>&amp;Apply %n Correction</numerusform>
            <numerusform>&amp;Apply %n Corrections</numerusform>
        </translation>
    </message>
    <message id="SApplyNothing">
        <source>Do&amp;ne</source>
        <extracomment>The same button where there is nothing to write.</extracomment>
        <translation>Do&amp;ne</translation>
    </message>
    <message id="SCancel">
        <source>Cance&amp;l</source>
        <translation>Cance&amp;l</translation>
    </message>
    <message id="SIgnore">
        <source>&amp;Ignore</source>
        <extracomment>Button that takes the selected address out of the window.</extracomment>
        <translation>&amp;Ignore</translation>
    </message>
    <message id="SRetry">
        <source>&amp;Retry</source>
        <extracomment>Button that asks again about all addresses that were not checked.</extracomment>
        <translation>&amp;Retry</translation>
    </message>
    <message id="SShowAll">
        <source>S&amp;how All</source>
        <extracomment>Button that selects all segments of the filter.</extracomment>
        <translation>S&amp;how All</translation>
    </message>
    <message id="SCheckAgain">
        <source>&amp;Check Again</source>
        <extracomment>Button that asks about the edited address.</extracomment>
        <translation>&amp;Check Again</translation>
    </message>
    <message id="SRestore">
        <source>Restore Ori&amp;ginal</source>
        <extracomment>Button that puts the text of the entry back into the field.</extracomment>
        <translation>Restore Ori&amp;ginal</translation>
    </message>
    <message id="SChoose">
        <source>Use &amp;Selected Address</source>
        <extracomment>Button that takes the selected candidate.</extracomment>
        <translation>Use &amp;Selected Address</translation>
    </message>
    <message id="SUseAddress">
        <source>Use This Te&amp;xt</source>
        <extracomment>Button that takes the edited address as the correction.</extracomment>
        <translation>Use This Te&amp;xt</translation>
    </message>
    <message id="SNoneSelected">
        <source>Select an address to see what became of it.
F8 goes to the next one that needs you.</source>
        <translation>Select an address to see what became of it.
F8 goes to the next one that needs you.</translation>
    </message>
    <message id="SNotYetChecked">
        <source>This address has not been checked yet.</source>
        <translation>This address has not been checked yet.</translation>
    </message>
    <message id="SFoundRight">
        <source>The service found this address right. Its entry stays as it is.</source>
        <translation>The service found this address right. Its entry stays as it is.</translation>
    </message>
    <message id="SFoundRightEdited">
        <source>The service found the edited address right. Use this text to have it written to the entry.</source>
        <translation>The service found the edited address right. Use this text to have it written to the entry.</translation>
    </message>
    <message id="SUnchangedAddressName">
        <source>Address</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Address</translation>
    </message>
    <message id="SFixedBefore">
        <source>As typed; what goes is struck out:</source>
        <translation>As typed; what goes is struck out:</translation>
    </message>
    <message id="SFixedAfter">
        <source>As fixed; what is new is underlined:</source>
        <translation>As fixed; what is new is underlined:</translation>
    </message>
    <message id="SFixedBeforeName">
        <source>Address as typed</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Address as typed</translation>
    </message>
    <message id="SFixedAfterName">
        <source>Address as fixed</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Address as fixed</translation>
    </message>
    <message id="SFixedBlank">
        <source>The correction has no text: applying it empties the entry. Ignore the address to keep the entry.</source>
        <translation>The correction has no text: applying it empties the entry. Ignore the address to keep the entry.</translation>
    </message>
    <message id="SMultipleAddress">
        <source>A&amp;ddress:</source>
        <translation>A&amp;ddress:</translation>
    </message>
    <message id="SMultipleAddressName">
        <source>Address</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Address</translation>
    </message>
    <message id="SMatches">
        <source>The service knows these addresses. &amp;Which one is meant?</source>
        <translation>The service knows these addresses. &amp;Which one is meant?</translation>
    </message>
    <message id="SMatchesName">
        <source>Possible addresses</source>
        <extracomment>Spoken name of the table of candidates.</extracomment>
        <translation>Possible addresses</translation>
    </message>
    <message id="SAlsoTwins" numerus="yes">
        <source>Also for %n &amp;more addresses with this text</source>
        <extracomment>Check box; the count is of the other addresses.</extracomment>
        <translation>
            <numerusform>Also for one &amp;more address with this text</numerusform>
            <numerusform>Also for %n &amp;more addresses with this text</numerusform>
        </translation>
    </message>
    <message id="SErrorHint">
        <source>Correct the a&amp;ddress and check it again, or ignore it to leave it as it is.</source>
        <translation>Correct the a&amp;ddress and check it again, or ignore it to leave it as it is.</translation>
    </message>
    <message id="SErrorHintService">
        <source>The address itself was not judged. Check it again when the service answers, or ignore it.</source>
        <translation>The address itself was not judged. Check it again when the service answers, or ignore it.</translation>
    </message>
    <message id="SErrorAddressName">
        <source>Address to correct</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Address to correct</translation>
    </message>
    <message id="SAskingAgain">
        <source>Checking the edited address…</source>
        <translation>Checking the edited address…</translation>
    </message>
    <message id="SProgressName">
        <source>Addresses checked</source>
        <extracomment>Spoken name of the progress bar.</extracomment>
        <translation>Addresses checked</translation>
    </message>
    <message id="SProgress">
        <source>%@ of %@</source>
        <extracomment>Addresses done, and all.</extracomment>
        <translation>%@ of %@</translation>
    </message>
    <message id="SProgressTime">
        <source>%@, %@</source>
        <extracomment>Progress, and the time left.</extracomment>
        <translation>%@, %@</translation>
    </message>
    <message id="SSecondsLeft" numerus="yes">
        <source>about %n seconds left</source>
        <translation>
            <numerusform>about %n second left</numerusform>
            <numerusform>about %n seconds left</numerusform>
        </translation>
    </message>
    <message id="SMinutesLeft" numerus="yes">
        <source>about %n minutes left</source>
        <translation>
            <numerusform>about %n minute left</numerusform>
            <numerusform>about %n minutes left</numerusform>
        </translation>
    </message>
    <message id="SHoursLeft" numerus="yes">
        <source>about %n hours left</source>
        <translation>
            <numerusform>about %n hour left</numerusform>
            <numerusform>about %n hours left</numerusform>
        </translation>
    </message>
    <message id="SStopping">
        <source>Stopping…</source>
        <extracomment>While the window waits for the worker to end.</extracomment>
        <translation>Stopping…</translation>
    </message>
    <message id="SAllRight" numerus="yes">
        <source>All %n addresses are right; there is nothing to apply.</source>
        <translation>
            <numerusform>The address is right; there is nothing to apply.</numerusform>
            <numerusform>All %n addresses are right; there is nothing to apply.</numerusform>
        </translation>
    </message>
    <message id="SCorrected" numerus="yes">
        <source>%n addresses were corrected.</source>
        <translation>
            <numerusform>%n address was corrected.</numerusform>
            <numerusform>%n addresses were corrected.</numerusform>
        </translation>
    </message>
    <message id="SNoneCorrected">
        <source>No address was corrected.</source>
        <translation>No address was corrected.</translation>
    </message>
    <message id="SRight" numerus="yes">
        <source>%n were right.</source>
        <translation>
            <numerusform>%n was right.</numerusform>
            <numerusform>%n were right.</numerusform>
        </translation>
    </message>
    <message id="SErrorsKept" numerus="yes">
        <source>%n errors</source>
        <extracomment>Part of SKept.</extracomment>
        <translation>
            <numerusform>%n error</numerusform>
            <numerusform>%n errors</numerusform>
        </translation>
    </message>
    <message id="SChoicesKept" numerus="yes">
        <source>%n open choices</source>
        <extracomment>Part of SKept.</extracomment>
        <translation>
            <numerusform>%n open choice</numerusform>
            <numerusform>%n open choices</numerusform>
        </translation>
    </message>
    <message id="SPendingKept" numerus="yes">
        <source>%n addresses not checked</source>
        <extracomment>Part of SKept.</extracomment>
        <translation>
            <numerusform>%n address not checked</numerusform>
            <numerusform>%n addresses not checked</numerusform>
        </translation>
    </message>
    <message id="SAnd">
        <source> and </source>
        <extracomment>Between parts of SKept.</extracomment>
        <translation> and </translation>
    </message>
    <message id="SKept">
        <source>Left as they are: %@.</source>
        <extracomment>What applying does not touch.</extracomment>
        <translation>Left as they are: %@.</translation>
    </message>
    <message id="SBlanked" numerus="yes">
        <source>%n entries would be emptied.</source>
        <translation>
            <numerusform>%n entry would be emptied.</numerusform>
            <numerusform>%n entries would be emptied.</numerusform>
        </translation>
    </message>
    <message id="SNoNetwork">
        <source>There is no network connection.</source>
        <extracomment>First sentence of the banner.</extracomment>
        <translation>There is no network connection.</translation>
    </message>
    <message id="SServiceDown">
        <source>The address service does not answer.</source>
        <extracomment>First sentence of the banner.</extracomment>
        <translation>The address service does not answer.</translation>
    </message>
    <message id="SNotChecked" numerus="yes">
        <source>%n addresses could not be checked.</source>
        <extracomment>Second sentence of the banner.</extracomment>
        <translation>
            <numerusform>%n address could not be checked.</numerusform>
            <numerusform>%n addresses could not be checked.</numerusform>
        </translation>
    </message>
    <message id="SNoAddresses">
        <source>There are no addresses to check.</source>
        <extracomment>Stands in place of an empty table.</extracomment>
        <translation>There are no addresses to check.</translation>
    </message>
    <message id="SNoneShown">
        <source>No address passes the filter.</source>
        <extracomment>Stands in place of an empty table.</extracomment>
        <translation>No address passes the filter.</translation>
    </message>
    <message id="SSpokenChanged">
        <source>%@ changed to %@</source>
        <extracomment>Spoken: a word and what it became.</extracomment>
        <translation>%@ changed to %@</translation>
    </message>
    <message id="SSpokenAdded">
        <source>%@ added</source>
        <extracomment>Spoken: new words.</extracomment>
        <translation>%@ added</translation>
    </message>
    <message id="SSpokenRemoved">
        <source>%@ removed</source>
        <extracomment>Spoken: words that are gone.</extracomment>
        <translation>%@ removed</translation>
    </message>
    <message id="SDesignatorTitle">
        <source>Choose One Address</source>
        <extracomment>Title of the designation dialog.</extracomment>
        <translation>Choose One Address</translation>
    </message>
    <message id="SDesignatorIntroduction">
        <source>The postal service knows this address for several units. Which one is meant?</source>
        <translation>The postal service knows this address for several units. Which one is meant?</translation>
    </message>
    <message id="SDesignatorAddress">
        <source>&amp;Address:</source>
        <translation>&amp;Address:</translation>
    </message>
    <message id="SDesignatorAddressName">
        <source>Address with the ranges it spans</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Address with the ranges it spans</translation>
    </message>
    <message id="SDesignatorNumber">
        <source>House &amp;number, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number.</extracomment>
        <translation>House &amp;number, %@ to %@:</translation>
    </message>
    <message id="SDesignatorNumberName">
        <source>House number</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>House number</translation>
    </message>
    <message id="SDesignatorCharacter">
        <source>&amp;Last character of the unit, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest character.</extracomment>
        <translation>&amp;Last character of the unit, %@ to %@:</translation>
    </message>
    <message id="SDesignatorCharacterName">
        <source>Last character of the unit</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Last character of the unit</translation>
    </message>
    <message id="SDesignatorOK">
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message id="SDesignatorOKName">
        <source>OK</source>
        <extracomment>Spoken name of a button.</extracomment>
        <translation>OK</translation>
    </message>
    <message id="SDesignatorCancel">
        <source>&amp;Cancel</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message id="SDesignatorCancelName">
        <source>Cancel</source>
        <extracomment>Spoken name of a button.</extracomment>
        <translation>Cancel</translation>
    </message>
</context>
</TS>
