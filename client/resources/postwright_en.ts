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
    <message id="SColumnConfirmation">
        <source>Confirmation</source>
        <extracomment>Column of the report: how far the service knows the address.</extracomment>
        <translation>Confirmation</translation>
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
    <message id="SStatusDoubtful">
        <source>Doubtful</source>
        <extracomment>Status of an address whose correction waits for a person.</extracomment>
        <translation>Doubtful</translation>
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
    <message id="SFilterDoubtful">
        <source>Dou&amp;btful</source>
        <extracomment>Button beside the filter, with a number: lists the doubtful corrections alone.</extracomment>
        <translation>Dou&amp;btful</translation>
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
    <message id="SApplyForm" numerus="yes">
        <source>&amp;Apply the Form to %n Addresses</source>
        <extracomment>Button of the batch window where nothing was corrected and %n addresses are only written differently.</extracomment>
        <translation>
            <numerusform>&amp;Apply the Form to %n Address</numerusform>
            <numerusform>&amp;Apply the Form to %n Addresses</numerusform>
        </translation>
    </message>
    <message id="SApplyBoth" numerus="yes">
        <source>&amp;Apply to %n Addresses</source>
        <extracomment>Button of the batch window: %n addresses were corrected or are only written differently.</extracomment>
        <translation>
            <numerusform>&amp;Apply to %n Address</numerusform>
            <numerusform>&amp;Apply to %n Addresses</numerusform>
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
    <message id="SUseProposal">
        <source>Check &amp;with “%@”</source>
        <extracomment>Button for an address that was turned down: checks it with the missing part put in, such as a ZIP code with its 0.</extracomment>
        <translation>Check &amp;with “%@”</translation>
    </message>
    <message id="SUseProposals" numerus="yes">
        <source>Mend All %n Like Thi&amp;s</source>
        <extracomment>Button: checks all addresses that were turned down for the same, each with its fault mended.</extracomment>
        <translation>
            <numerusform>Mend All %n Like Thi&amp;s</numerusform>
            <numerusform>Mend All %n Like Thi&amp;s</numerusform>
        </translation>
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
        <source>The service found this address right.</source>
        <translation>The service found this address right.</translation>
    </message>
    <message id="SNothingToCorrect">
        <source>The service found nothing to correct.</source>
        <extracomment>Detail of an unchanged address that was not confirmed; how far it is known follows.</extracomment>
        <translation>The service found nothing to correct.</translation>
    </message>
    <message id="SEntryStays">
        <source>Its entry stays as it is.</source>
        <extracomment>Follows what the service found.</extracomment>
        <translation>Its entry stays as it is.</translation>
    </message>
    <message id="SUseEdited">
        <source>Use this text to have it written to the entry.</source>
        <extracomment>Follows what the service found of an edited address.</extracomment>
        <translation>Use this text to have it written to the entry.</translation>
    </message>
    <message id="SInForm">
        <source>It is written in the chosen form:</source>
        <extracomment>Follows what the service found; the text is below.</extracomment>
        <translation>It is written in the chosen form:</translation>
    </message>
    <message id="SKeptTyped">
        <source>You left this text as it was typed. Its entry stays as it is.</source>
        <translation>You left this text as it was typed. Its entry stays as it is.</translation>
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
    <message id="SMatchesDoubtful">
        <source>This correction is doubtful and was not made. &amp;Which text is right?</source>
        <extracomment>Above the text as corrected and as typed, below the reason.</extracomment>
        <translation>This correction is doubtful and was not made. &amp;Which text is right?</translation>
    </message>
    <message id="SMatchesTyped">
        <source>This address is doubtful. Use it &amp;where it is right, or correct it.</source>
        <extracomment>Above the text as typed alone, below the reason.</extracomment>
        <translation>This address is doubtful. Use it &amp;where it is right, or correct it.</translation>
    </message>
    <message id="SMatchesName">
        <source>Possible addresses</source>
        <extracomment>Spoken name of the table of candidates.</extracomment>
        <translation>Possible addresses</translation>
    </message>
    <message id="SAsCorrected">
        <source>As corrected</source>
        <extracomment>Beside a doubtful correction, and spoken.</extracomment>
        <translation>As corrected</translation>
    </message>
    <message id="SAsTyped">
        <source>As typed</source>
        <extracomment>Beside the text that was doubtfully corrected, and spoken.</extracomment>
        <translation>As typed</translation>
    </message>
    <message id="SAlsoTwins" numerus="yes">
        <source>Also for %n more addresses with this te&amp;xt</source>
        <extracomment>Check box; the count is of the other addresses.</extracomment>
        <translation>
            <numerusform>Also for one more address with this te&amp;xt</numerusform>
            <numerusform>Also for %n more addresses with this te&amp;xt</numerusform>
        </translation>
    </message>
    <message id="SErrorHint">
        <source>Correct the a&amp;ddress and check it again, or ignore it to leave it as it is.</source>
        <translation>Correct the a&amp;ddress and check it again, or ignore it to leave it as it is.</translation>
    </message>
    <message id="SErrorHintService">
        <source>The a&amp;ddress itself was not judged. Check it again when the service answers, or ignore it.</source>
        <translation>The a&amp;ddress itself was not judged. Check it again when the service answers, or ignore it.</translation>
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
    <message id="SUnconfirmed" numerus="yes">
        <source>%n are well written, but not confirmed.</source>
        <extracomment>Sentence of the summary: unchanged addresses of which the service knows the form alone.</extracomment>
        <translation>
            <numerusform>%n is well written, but not confirmed.</numerusform>
            <numerusform>%n are well written, but not confirmed.</numerusform>
        </translation>
    </message>
    <message id="SFormed" numerus="yes">
        <source>%n of these are written in the chosen form.</source>
        <extracomment>Sentence of the summary: unchanged addresses whose case or punctuation becomes that of the corrected ones.</extracomment>
        <translation>
            <numerusform>%n of these is written in the chosen form.</numerusform>
            <numerusform>%n of these are written in the chosen form.</numerusform>
        </translation>
    </message>
    <message id="STypedKept" numerus="yes">
        <source>%n addresses as typed</source>
        <extracomment>Part of SKept.</extracomment>
        <translation>
            <numerusform>%n address as typed</numerusform>
            <numerusform>%n addresses as typed</numerusform>
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
    <message id="SStatusOwn">
        <source>As Written</source>
        <extracomment>Status of an address whose corrected text is the person's own.</extracomment>
        <translation>As Written</translation>
    </message>
    <message id="SSpokenMoved">
        <source>%@ moved from line %@ to line %@</source>
        <extracomment>What a screen reader says of a word that went into another line.</extracomment>
        <translation>%@ moved from line %@ to line %@</translation>
    </message>
    <message id="SMoreChanges" numerus="yes">
        <source>%n more changes</source>
        <extracomment>Last line of a tool tip.</extracomment>
        <translation>
            <numerusform>%n more change</numerusform>
            <numerusform>%n more changes</numerusform>
        </translation>
    </message>
    <message id="SEdit">
        <source>E&amp;dit… (F2)</source>
        <extracomment>Button that lets an address be edited that has an outcome.</extracomment>
        <translation>E&amp;dit… (F2)</translation>
    </message>
    <message id="SEditAddress">
        <source>Text to c&amp;heck:</source>
        <extracomment>Above the field for the text that the service is asked about.</extracomment>
        <translation>Text to c&amp;heck:</translation>
    </message>
    <message id="SEditAddressName">
        <source>Text to check</source>
        <extracomment>Spoken name of that field.</extracomment>
        <translation>Text to check</translation>
    </message>
    <message id="SEditFixed">
        <source>As I &amp;write it:</source>
        <extracomment>Above the field for the person's own correction.</extracomment>
        <translation>As I &amp;write it:</translation>
    </message>
    <message id="SEditFixedName">
        <source>Corrected text as I write it</source>
        <extracomment>Spoken name of that field.</extracomment>
        <translation>Corrected text as I write it</translation>
    </message>
    <message id="SKeepText">
        <source>&amp;Keep My Text</source>
        <extracomment>Button that takes the text in the field as the correction.</extracomment>
        <translation>&amp;Keep My Text</translation>
    </message>
    <message id="STakeTyped">
        <source>Ta&amp;ke as Typed</source>
        <extracomment>Button that leaves the selected addresses as they are.</extracomment>
        <translation>Ta&amp;ke as Typed</translation>
    </message>
    <message id="SAcceptDoubtful" numerus="yes">
        <source>Accept %n &amp;Doubtful</source>
        <extracomment>Button for several selected addresses: makes the doubtful corrections among them.</extracomment>
        <translation>
            <numerusform>Accept %n &amp;Doubtful</numerusform>
            <numerusform>Accept %n &amp;Doubtful</numerusform>
        </translation>
    </message>
    <message id="SFixedOwn">
        <source>This is your own text; the service was not asked about it.</source>
        <extracomment>Note above a correction that the person wrote.</extracomment>
        <translation>This is your own text; the service was not asked about it.</translation>
    </message>
    <message id="SCut" numerus="yes">
        <source>%n more characters are not shown.</source>
        <extracomment>Below a very long line.</extracomment>
        <translation>
            <numerusform>%n more character is not shown.</numerusform>
            <numerusform>%n more characters are not shown.</numerusform>
        </translation>
    </message>
    <message id="SLongLine">
        <source>This line is too long to be edited here.</source>
        <extracomment>Tool tip of a field that cannot be edited.</extracomment>
        <translation>This line is too long to be edited here.</translation>
    </message>
    <message id="SMarkRest">
        <source>Mar&amp;k the Rest</source>
        <extracomment>Button that shows and marks all of a very long line.</extracomment>
        <translation>Mar&amp;k the Rest</translation>
    </message>
    <message id="SStop">
        <source>Sto&amp;p</source>
        <extracomment>Button that ends the run after the address under way.</extracomment>
        <translation>Sto&amp;p</translation>
    </message>
    <message id="SGoOn">
        <source>Go &amp;On</source>
        <extracomment>Button that asks about the rest after a stop.</extracomment>
        <translation>Go &amp;On</translation>
    </message>
    <message id="SStopped">
        <source>Stopped: %@ of %@ checked.</source>
        <extracomment>Below the list after a stop.</extracomment>
        <translation>Stopped: %@ of %@ checked.</translation>
    </message>
    <message id="SWaiting">
        <source>Waiting for the service, %@ s</source>
        <extracomment>Beside the progress while no answer comes; the number is of seconds.</extracomment>
        <translation>Waiting for the service, %@ s</translation>
    </message>
    <message id="SGaveUp" numerus="yes">
        <source>The address service has not answered for %n minutes.</source>
        <extracomment>Banner after a run that gave up waiting.</extracomment>
        <translation>
            <numerusform>The address service has not answered for %n minute.</numerusform>
            <numerusform>The address service has not answered for %n minutes.</numerusform>
        </translation>
    </message>
    <message id="SNotAskedYet" numerus="yes">
        <source>%n addresses were not asked about.</source>
        <extracomment>Second sentence of that banner.</extracomment>
        <translation>
            <numerusform>%n address was not asked about.</numerusform>
            <numerusform>%n addresses were not asked about.</numerusform>
        </translation>
    </message>
    <message id="SNotAskedShort">
        <source>Not asked about</source>
        <extracomment>Status, in a report, of an address that has no outcome.</extracomment>
        <translation>Not asked about</translation>
    </message>
    <message id="SSeveral" numerus="yes">
        <source>%n addresses selected</source>
        <extracomment>Above what can be done with them; a line on how they stand follows.</extracomment>
        <translation>
            <numerusform>%n address selected</numerusform>
            <numerusform>%n addresses selected</numerusform>
        </translation>
    </message>
    <message id="SReasonName">
        <source>Show errors for the reason</source>
        <extracomment>Spoken name of the list of reasons.</extracomment>
        <translation>Show errors for the reason</translation>
    </message>
    <message id="SAllReasons">
        <source>All Reasons</source>
        <extracomment>First entry of the list of reasons.</extracomment>
        <translation>All Reasons</translation>
    </message>
    <message id="SReasonCount">
        <source>%@ (%@)</source>
        <extracomment>Entry of the list of reasons: the message and how many there are.</extracomment>
        <translation>%@ (%@)</translation>
    </message>
    <message id="SSearch">
        <source>Search (Ctrl+F)</source>
        <extracomment>Stands in the empty search field.</extracomment>
        <translation>Search (Ctrl+F)</translation>
    </message>
    <message id="SSearchName">
        <source>Search in both texts</source>
        <extracomment>Spoken name of the search field.</extracomment>
        <translation>Search in both texts</translation>
    </message>
    <message id="SMore">
        <source>&amp;More</source>
        <extracomment>Button that opens the menu.</extracomment>
        <translation>&amp;More</translation>
    </message>
    <message id="SUndo">
        <source>Undo</source>
        <extracomment>Menu.</extracomment>
        <translation>Undo</translation>
    </message>
    <message id="SUndoStep">
        <source>Undo %@</source>
        <extracomment>Menu; the step follows.</extracomment>
        <translation>Undo %@</translation>
    </message>
    <message id="SRedo">
        <source>Redo</source>
        <extracomment>Menu.</extracomment>
        <translation>Redo</translation>
    </message>
    <message id="SRedoStep">
        <source>Redo %@</source>
        <extracomment>Menu; the step follows.</extracomment>
        <translation>Redo %@</translation>
    </message>
    <message id="SCopy">
        <source>Copy Rows</source>
        <extracomment>Menu.</extracomment>
        <translation>Copy Rows</translation>
    </message>
    <message id="SFind">
        <source>Search</source>
        <extracomment>Menu.</extracomment>
        <translation>Search</translation>
    </message>
    <message id="SSameForAll">
        <source>The Same for All…</source>
        <extracomment>Menu: makes the person's change in other addresses, too.</extracomment>
        <translation>The Same for All…</translation>
    </message>
    <message id="SHostOrder">
        <source>Gi&amp;ven Order</source>
        <extracomment>Button beside the filter and menu: ends the sorting by a column.</extracomment>
        <translation>Gi&amp;ven Order</translation>
    </message>
    <message id="SSummary">
        <source>Summar&amp;y…</source>
        <extracomment>Button that shows how the run went.</extracomment>
        <translation>Summar&amp;y…</translation>
    </message>
    <message id="SSummaryAction">
        <source>Summary and Report…</source>
        <extracomment>Menu: the same.</extracomment>
        <translation>Summary and Report…</translation>
    </message>
    <message id="SStepAsk" numerus="yes">
        <source>Check of %n</source>
        <extracomment>A step, after Undo: addresses that were asked about again.</extracomment>
        <translation>
            <numerusform>Check of %n</numerusform>
            <numerusform>Check of %n</numerusform>
        </translation>
    </message>
    <message id="SStepChoose" numerus="yes">
        <source>Choice for %n</source>
        <extracomment>A step, after Undo.</extracomment>
        <translation>
            <numerusform>Choice for %n</numerusform>
            <numerusform>Choice for %n</numerusform>
        </translation>
    </message>
    <message id="SStepUse" numerus="yes">
        <source>Text of %n</source>
        <extracomment>A step, after Undo: the person's text was taken.</extracomment>
        <translation>
            <numerusform>Text of %n</numerusform>
            <numerusform>Text of %n</numerusform>
        </translation>
    </message>
    <message id="SStepTyped" numerus="yes">
        <source>Take as Typed of %n</source>
        <extracomment>A step, after Undo.</extracomment>
        <translation>
            <numerusform>Take as Typed of %n</numerusform>
            <numerusform>Take as Typed of %n</numerusform>
        </translation>
    </message>
    <message id="SStepAccept" numerus="yes">
        <source>Acceptance of %n</source>
        <extracomment>Step of the person, in "Undo …".</extracomment>
        <translation>
            <numerusform>Acceptance of %n</numerusform>
            <numerusform>Acceptance of %n</numerusform>
        </translation>
    </message>
    <message id="SStepIgnore" numerus="yes">
        <source>Ignore of %n</source>
        <extracomment>A step, after Undo.</extracomment>
        <translation>
            <numerusform>Ignore of %n</numerusform>
            <numerusform>Ignore of %n</numerusform>
        </translation>
    </message>
    <message id="SStepSame" numerus="yes">
        <source>Same Change in %n</source>
        <extracomment>A step, after Undo.</extracomment>
        <translation>
            <numerusform>Same Change in %n</numerusform>
            <numerusform>Same Change in %n</numerusform>
        </translation>
    </message>
    <message id="SLeaveQuestion">
        <source>Close the window? There is work in it that is not applied.</source>
        <extracomment>Question at closing.</extracomment>
        <translation>Close the window? There is work in it that is not applied.</translation>
    </message>
    <message id="SLeaveDiscard">
        <source>&amp;Discard</source>
        <extracomment>Answer to it.</extracomment>
        <translation>&amp;Discard</translation>
    </message>
    <message id="SLeaveStay">
        <source>&amp;Stay</source>
        <extracomment>Answer to it.</extracomment>
        <translation>&amp;Stay</translation>
    </message>
    <message id="SSameQuestion" numerus="yes">
        <source>Make the same change in %n more addresses?</source>
        <extracomment>Question; the change and the addresses follow.</extracomment>
        <translation>
            <numerusform>Make the same change in %n more address?</numerusform>
            <numerusform>Make the same change in %n more addresses?</numerusform>
        </translation>
    </message>
    <message id="SSameChange">
        <source>&amp;Change and Check</source>
        <extracomment>Answer to it.</extracomment>
        <translation>&amp;Change and Check</translation>
    </message>
    <message id="SSameLeave">
        <source>&amp;Leave Them</source>
        <extracomment>Answer to it.</extracomment>
        <translation>&amp;Leave Them</translation>
    </message>
    <message id="SMoreAddresses" numerus="yes">
        <source>and %n more</source>
        <extracomment>Behind the first addresses of a longer list.</extracomment>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message id="SColumnReason">
        <source>Reason</source>
        <extracomment>Column of a report.</extracomment>
        <translation>Reason</translation>
    </message>
    <message id="SReportTitle">
        <source>Address Check</source>
        <extracomment>Title of the summary and of the report.</extracomment>
        <translation>Address Check</translation>
    </message>
    <message id="SReportName">
        <source>address-check</source>
        <extracomment>Name of the file that is offered, without an ending.</extracomment>
        <translation>address-check</translation>
    </message>
    <message id="SReportCsv">
        <source>Table</source>
        <extracomment>Kind of file.</extracomment>
        <translation>Table</translation>
    </message>
    <message id="SReportHtml">
        <source>Web page</source>
        <extracomment>Kind of file.</extracomment>
        <translation>Web page</translation>
    </message>
    <message id="SReportFailed">
        <source>%@ was not saved: %@.</source>
        <extracomment>The file and why.</extracomment>
        <translation>%@ was not saved: %@.</translation>
    </message>
    <message id="SSaveReport">
        <source>&amp;Save Report…</source>
        <extracomment>Button of the summary.</extracomment>
        <translation>&amp;Save Report…</translation>
    </message>
    <message id="SSaveReportTitle">
        <source>Save the report</source>
        <extracomment>Title of the file dialog.</extracomment>
        <translation>Save the report</translation>
    </message>
    <message id="SClose">
        <source>&amp;Close</source>
        <extracomment>Button of the summary.</extracomment>
        <translation>&amp;Close</translation>
    </message>
    <message id="SSumRight">
        <source>Right as typed</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Right as typed</translation>
    </message>
    <message id="SSumUnconfirmed">
        <source>Well written, not confirmed</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Well written, not confirmed</translation>
    </message>
    <message id="SSumTyped">
        <source>Left as typed</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Left as typed</translation>
    </message>
    <message id="SSumFixed">
        <source>Corrected</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Corrected</translation>
    </message>
    <message id="SSumOwn">
        <source>As you wrote them</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>As you wrote them</translation>
    </message>
    <message id="SSumDoubtful">
        <source>Doubtful, not decided on</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Doubtful, not decided on</translation>
    </message>
    <message id="SSumMultiple">
        <source>To be chosen</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>To be chosen</translation>
    </message>
    <message id="SSumErrors">
        <source>Errors</source>
        <extracomment>Line of the summary; the reasons follow.</extracomment>
        <translation>Errors</translation>
    </message>
    <message id="SSumUnanswered">
        <source>Not answered by the service</source>
        <extracomment>Line of the summary: the service or the network failed.</extracomment>
        <translation>Not answered by the service</translation>
    </message>
    <message id="SSumPending">
        <source>Not asked about</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Not asked about</translation>
    </message>
    <message id="SSumConfirmation">
        <source>How far the answers are confirmed</source>
        <extracomment>Line of the summary; a line for each degree follows.</extracomment>
        <translation>How far the answers are confirmed</translation>
    </message>
    <message id="SCandidateIntroduction">
        <source>The service knows this address for several numbers. Which one is meant?</source>
        <extracomment>Above the address in the dialog that asks for a number.</extracomment>
        <translation>The service knows this address for several numbers. Which one is meant?</translation>
    </message>
    <message id="SCandidateWhole">
        <source>The service is asked about this address.</source>
        <extracomment>Above the address in the dialog, where no number is left to ask for.</extracomment>
        <translation>The service is asked about this address.</translation>
    </message>
    <message id="SCandidateNumber">
        <source>House &amp;number, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number.</extracomment>
        <translation>House &amp;number, %@ to %@:</translation>
    </message>
    <message id="SCandidateNumberEven">
        <source>House &amp;number, even, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number.</extracomment>
        <translation>House &amp;number, even, %@ to %@:</translation>
    </message>
    <message id="SCandidateNumberOdd">
        <source>House &amp;number, odd, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number.</extracomment>
        <translation>House &amp;number, odd, %@ to %@:</translation>
    </message>
    <message id="SCandidateBox">
        <source>Box &amp;number, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number of a post-office box.</extracomment>
        <translation>Box &amp;number, %@ to %@:</translation>
    </message>
    <message id="SCandidateUnit">
        <source>&amp;Unit, %@ to %@:</source>
        <extracomment>Caption of a field: first and last unit.</extracomment>
        <translation>&amp;Unit, %@ to %@:</translation>
    </message>
    <message id="SCandidateUnitEven">
        <source>&amp;Unit, even, %@ to %@:</source>
        <extracomment>Caption of a field: first and last unit.</extracomment>
        <translation>&amp;Unit, even, %@ to %@:</translation>
    </message>
    <message id="SCandidateUnitOdd">
        <source>&amp;Unit, odd, %@ to %@:</source>
        <extracomment>Caption of a field: first and last unit.</extracomment>
        <translation>&amp;Unit, odd, %@ to %@:</translation>
    </message>
    <message id="SCandidateCheck">
        <source>Chec&amp;k</source>
        <extracomment>Button: asks the service about the address with the number.</extracomment>
        <translation>Chec&amp;k</translation>
    </message>
    <message id="SCandidateKeep">
        <source>K&amp;eep It All the Same</source>
        <extracomment>Button: takes the address though it is not confirmed.</extracomment>
        <translation>K&amp;eep It All the Same</translation>
    </message>
    <message id="SCandidateAsking">
        <source>Asking the service…</source>
        <translation>Asking the service…</translation>
    </message>
    <message id="SCandidateOutside">
        <source>%@ is not between %@ and %@. Keep it if you know that it is right.</source>
        <extracomment>The number, and the range that it is not in.</extracomment>
        <translation>%@ is not between %@ and %@. Keep it if you know that it is right.</translation>
    </message>
    <message id="SCandidateNotEven">
        <source>%@ is not an even number, as those from %@ to %@ are. Keep it if you know that it is right.</source>
        <extracomment>The number, and the range of even numbers.</extracomment>
        <translation>%@ is not an even number, as those from %@ to %@ are. Keep it if you know that it is right.</translation>
    </message>
    <message id="SCandidateNotOdd">
        <source>%@ is not an odd number, as those from %@ to %@ are. Keep it if you know that it is right.</source>
        <extracomment>The number, and the range of odd numbers.</extracomment>
        <translation>%@ is not an odd number, as those from %@ to %@ are. Keep it if you know that it is right.</translation>
    </message>
    <message id="SCandidateDoubt">
        <source>The service does not confirm this address. %@</source>
        <extracomment>Followed by the reason.</extracomment>
        <translation>The service does not confirm this address. %@</translation>
    </message>
    <message id="SCandidateNumberNotKnown">
        <source>The street is known, the number is not.</source>
        <extracomment>A reason.</extracomment>
        <translation>The street is known, the number is not.</translation>
    </message>
    <message id="SCandidateUnitMissing">
        <source>The building is known, and its unit is missing.</source>
        <extracomment>A reason.</extracomment>
        <translation>The building is known, and its unit is missing.</translation>
    </message>
    <message id="SCandidateUnitNotKnown">
        <source>The building is known, the unit is not.</source>
        <extracomment>A reason.</extracomment>
        <translation>The building is known, the unit is not.</translation>
    </message>
    <message id="SCandidateFormOnly">
        <source>Nobody has checked the street.</source>
        <extracomment>A reason.</extracomment>
        <translation>Nobody has checked the street.</translation>
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
