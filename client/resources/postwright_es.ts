<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en_US">
<context>
    <name></name>
    <message id="SProcessing">
        <source>Processing…</source>
        <extracomment>Stands in place of the corrected address until the service has answered.</extracomment>
        <translation>Procesando…</translation>
    </message>
    <message id="SWindowTitle">
        <source>Fix Addresses</source>
        <extracomment>Title of the batch window.</extracomment>
        <translation>Corregir direcciones</translation>
    </message>
    <message id="SAddressesName">
        <source>Addresses</source>
        <extracomment>Spoken name of the table of addresses.</extracomment>
        <translation>Direcciones</translation>
    </message>
    <message id="SColumnAddress">
        <source>Address as Typed</source>
        <extracomment>Column of the table.</extracomment>
        <translation>Dirección escrita</translation>
    </message>
    <message id="SColumnFixed">
        <source>Address as Fixed</source>
        <extracomment>Column of the table.</extracomment>
        <translation>Dirección corregida</translation>
    </message>
    <message id="SColumnStatus">
        <source>Status</source>
        <extracomment>Column of the table.</extracomment>
        <translation>Estado</translation>
    </message>
    <message id="SColumnConfirmation">
        <source>Confirmation</source>
        <extracomment>Column of the report: how far the service knows the address.</extracomment>
        <translation>Confirmación</translation>
    </message>
    <message id="SStatusUnchanged">
        <source>Unchanged</source>
        <extracomment>Status of an address that the service found right.</extracomment>
        <translation>Sin cambios</translation>
    </message>
    <message id="SStatusFixed">
        <source>Fixed</source>
        <extracomment>Status of an address that was corrected.</extracomment>
        <translation>Corregida</translation>
    </message>
    <message id="SStatusMultiple">
        <source>To Choose</source>
        <extracomment>Status of an address for which the service knows several.</extracomment>
        <translation>Por elegir</translation>
    </message>
    <message id="SStatusDoubtful">
        <source>Doubtful</source>
        <extracomment>Status of an address whose correction waits for a person.</extracomment>
        <translation>Dudosa</translation>
    </message>
    <message id="SStatusError">
        <source>Error</source>
        <extracomment>Status of an address that failed.</extracomment>
        <translation>Error</translation>
    </message>
    <message id="SStatusNotChecked">
        <source>Not Checked</source>
        <extracomment>Status of an address that was not judged: the service or the network failed.</extracomment>
        <translation>Sin comprobar</translation>
    </message>
    <message id="SFilterName">
        <source>Show addresses that are</source>
        <extracomment>Spoken name of the filter.</extracomment>
        <translation>Mostrar las direcciones</translation>
    </message>
    <message id="SFilterUnchanged">
        <source>&amp;Unchanged</source>
        <extracomment>Segment of the filter; the others follow.</extracomment>
        <translation>Si&amp;n cambios</translation>
    </message>
    <message id="SFilterFixed">
        <source>&amp;Fixed</source>
        <translation>C&amp;orregidas</translation>
    </message>
    <message id="SFilterMultiple">
        <source>&amp;To Choose</source>
        <translation>Por &amp;elegir</translation>
    </message>
    <message id="SFilterError">
        <source>&amp;Errors</source>
        <translation>E&amp;rrores</translation>
    </message>
    <message id="SFilterDoubtful">
        <source>Dou&amp;btful</source>
        <extracomment>Button beside the filter, with a number: lists the doubtful corrections alone.</extracomment>
        <translation>Dudo&amp;sas</translation>
    </message>
    <message id="SFilterCount">
        <source>%@  %@</source>
        <extracomment>Caption of a segment: its name and its count.</extracomment>
        <translation>%@  %@</translation>
    </message>
    <message id="SHintBlank">
        <source>No text: applying would empty the entry</source>
        <extracomment>Stands in place of an empty corrected address.</extracomment>
        <translation>Sin texto: al aplicar, la entrada quedaría vacía</translation>
    </message>
    <message id="SHintMultiple" numerus="yes">
        <source>%n addresses to choose from</source>
        <extracomment>Stands in place of the corrected address.</extracomment>
        <translation>
            <numerusform>%n dirección para elegir</numerusform>
            <numerusform>%n direcciones para elegir</numerusform>
        </translation>
    </message>
    <message id="SApply" numerus="yes">
        <source>&amp;Apply %n Corrections</source>
        <extracomment>Button that writes the corrected addresses.</extracomment>
        <translation>
            <numerusform>&amp;Aplicar %n corrección</numerusform>
            <numerusform>&amp;Aplicar %n correcciones</numerusform>
        </translation>
    </message>
    <message id="SApplyForm" numerus="yes">
        <source>&amp;Apply the Form to %n Addresses</source>
        <extracomment>Button of the batch window where nothing was corrected and %n addresses are only written differently.</extracomment>
        <translation>
            <numerusform>&amp;Aplicar la forma a %n dirección</numerusform>
            <numerusform>&amp;Aplicar la forma a %n direcciones</numerusform>
        </translation>
    </message>
    <message id="SApplyBoth" numerus="yes">
        <source>&amp;Apply to %n Addresses</source>
        <extracomment>Button of the batch window: %n addresses were corrected or are only written differently.</extracomment>
        <translation>
            <numerusform>&amp;Aplicar a %n dirección</numerusform>
            <numerusform>&amp;Aplicar a %n direcciones</numerusform>
        </translation>
    </message>
    <message id="SApplyNothing">
        <source>Do&amp;ne</source>
        <extracomment>The same button where there is nothing to write.</extracomment>
        <translation>&amp;Aceptar</translation>
    </message>
    <message id="SCancel">
        <source>Cance&amp;l</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message id="SIgnore">
        <source>&amp;Ignore</source>
        <extracomment>Button that takes the selected address out of the window.</extracomment>
        <translation>&amp;Ignorar</translation>
    </message>
    <message id="SRetry">
        <source>&amp;Retry</source>
        <extracomment>Button that asks again about all addresses that were not checked.</extracomment>
        <translation>Rein&amp;tentar</translation>
    </message>
    <message id="SShowAll">
        <source>S&amp;how All</source>
        <extracomment>Button that selects all segments of the filter.</extracomment>
        <translation>Mostrar to&amp;das</translation>
    </message>
    <message id="SCheckAgain">
        <source>&amp;Check Again</source>
        <extracomment>Button that asks about the edited address.</extracomment>
        <translation>&amp;Volver a comprobar</translation>
    </message>
    <message id="SUseProposal">
        <source>Check &amp;with “%@”</source>
        <extracomment>Button for an address that was turned down: checks it with the missing part put in, such as a ZIP code with its 0.</extracomment>
        <translation>&amp;Usar “%@”</translation>
    </message>
    <message id="SUseProposals" numerus="yes">
        <source>Mend All %n Like Thi&amp;s</source>
        <extracomment>Button: checks all addresses that were turned down for the same, each with its fault mended.</extracomment>
        <translation>
            <numerusform>Corregir de una ve&amp;z las %n como esta</numerusform>
            <numerusform>Corregir de una ve&amp;z las %n como esta</numerusform>
        </translation>
    </message>
    <message id="SRestore">
        <source>Restore Ori&amp;ginal</source>
        <extracomment>Button that puts the text of the entry back into the field.</extracomment>
        <translation>Restaurar ori&amp;ginal</translation>
    </message>
    <message id="SChoose">
        <source>Use &amp;Selected Address</source>
        <extracomment>Button that takes the selected candidate.</extracomment>
        <translation>&amp;Usar la seleccionada</translation>
    </message>
    <message id="SUseAddress">
        <source>Use This Te&amp;xt</source>
        <extracomment>Button that takes the edited address as the correction.</extracomment>
        <translation>Usar este te&amp;xto</translation>
    </message>
    <message id="SNoneSelected">
        <source>Select an address to see what became of it.
F8 goes to the next one that needs you.</source>
        <translation>Seleccione una dirección para ver su resultado.
F8 lleva a la siguiente que lo necesita.</translation>
    </message>
    <message id="SNotYetChecked">
        <source>This address has not been checked yet.</source>
        <translation>Esta dirección aún no se ha comprobado.</translation>
    </message>
    <message id="SFoundRight">
        <source>The service found this address right.</source>
        <translation>El servicio da por correcta esta dirección.</translation>
    </message>
    <message id="SNothingToCorrect">
        <source>The service found nothing to correct.</source>
        <extracomment>Detail of an unchanged address that was not confirmed; how far it is known follows.</extracomment>
        <translation>El servicio no encontró nada que corregir.</translation>
    </message>
    <message id="SEntryStays">
        <source>Its entry stays as it is.</source>
        <extracomment>Follows what the service found.</extracomment>
        <translation>Su entrada queda como está.</translation>
    </message>
    <message id="SUseEdited">
        <source>Use this text to have it written to the entry.</source>
        <extracomment>Follows what the service found of an edited address.</extracomment>
        <translation>Use este texto para que se escriba en la entrada.</translation>
    </message>
    <message id="SInForm">
        <source>It is written in the chosen form:</source>
        <extracomment>Follows what the service found; the text is below.</extracomment>
        <translation>Se escribe en la forma elegida:</translation>
    </message>
    <message id="SKeptTyped">
        <source>You left this text as it was typed. Its entry stays as it is.</source>
        <translation>Usted dejó este texto como se escribió. Su entrada queda como está.</translation>
    </message>
    <message id="SUnchangedAddressName">
        <source>Address</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Dirección</translation>
    </message>
    <message id="SFixedBefore">
        <source>As typed; what goes is struck out:</source>
        <translation>Como se escribió; lo que se quita está tachado:</translation>
    </message>
    <message id="SFixedAfter">
        <source>As fixed; what is new is underlined:</source>
        <translation>Corregida; lo nuevo está subrayado:</translation>
    </message>
    <message id="SFixedBeforeName">
        <source>Address as typed</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Dirección como se escribió</translation>
    </message>
    <message id="SFixedAfterName">
        <source>Address as fixed</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Dirección corregida</translation>
    </message>
    <message id="SFixedBlank">
        <source>The correction has no text: applying it empties the entry. Ignore the address to keep the entry.</source>
        <translation>La corrección no tiene texto: al aplicarla, la entrada queda vacía. Ignore la dirección para conservarla.</translation>
    </message>
    <message id="SMultipleAddress">
        <source>A&amp;ddress:</source>
        <translation>&amp;Dirección:</translation>
    </message>
    <message id="SMultipleAddressName">
        <source>Address</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Dirección</translation>
    </message>
    <message id="SMatches">
        <source>The service knows these addresses. &amp;Which one is meant?</source>
        <translation>El servicio conoce estas direcciones. ¿A cuál se re&amp;fiere?</translation>
    </message>
    <message id="SMatchesDoubtful">
        <source>This correction is doubtful and was not made. &amp;Which text is right?</source>
        <extracomment>Above the text as corrected and as typed, below the reason.</extracomment>
        <translation>Esta corrección es dudosa y no se ha hecho. ¿Qué te&amp;xto es el correcto?</translation>
    </message>
    <message id="SMatchesTyped">
        <source>This address is doubtful. Use it &amp;where it is right, or correct it.</source>
        <extracomment>Above the text as typed alone, below the reason.</extracomment>
        <translation>Esta dirección es dudosa. Úsela si es correcta, o corrí&amp;jala.</translation>
    </message>
    <message id="SMatchesName">
        <source>Possible addresses</source>
        <extracomment>Spoken name of the table of candidates.</extracomment>
        <translation>Direcciones posibles</translation>
    </message>
    <message id="SAsCorrected">
        <source>As corrected</source>
        <extracomment>Beside a doubtful correction, and spoken.</extracomment>
        <translation>Corregida</translation>
    </message>
    <message id="SAsTyped">
        <source>As typed</source>
        <extracomment>Beside the text that was doubtfully corrected, and spoken.</extracomment>
        <translation>Escrita</translation>
    </message>
    <message id="SAlsoTwins" numerus="yes">
        <source>Also for %n more addresses with this te&amp;xt</source>
        <extracomment>Check box; the count is of the other addresses.</extracomment>
        <translation>
            <numerusform>Tam&amp;bién para otra dirección con este texto</numerusform>
            <numerusform>Tam&amp;bién para otras %n direcciones con este texto</numerusform>
        </translation>
    </message>
    <message id="SErrorHint">
        <source>Correct the a&amp;ddress and check it again, or ignore it to leave it as it is.</source>
        <translation>Corrija la &amp;dirección y compruébela de nuevo, o ignórela para dejarla como está.</translation>
    </message>
    <message id="SErrorHintService">
        <source>The a&amp;ddress itself was not judged. Check it again when the service answers, or ignore it.</source>
        <translation>La &amp;dirección no se ha juzgado. Compruébela de nuevo cuando el servicio responda, o ignórela.</translation>
    </message>
    <message id="SErrorAddressName">
        <source>Address to correct</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Dirección por corregir</translation>
    </message>
    <message id="SAskingAgain">
        <source>Checking the edited address…</source>
        <translation>Comprobando la dirección editada…</translation>
    </message>
    <message id="SProgressName">
        <source>Addresses checked</source>
        <extracomment>Spoken name of the progress bar.</extracomment>
        <translation>Direcciones comprobadas</translation>
    </message>
    <message id="SProgress">
        <source>%@ of %@</source>
        <extracomment>Addresses done, and all.</extracomment>
        <translation>%@ de %@</translation>
    </message>
    <message id="SProgressTime">
        <source>%@, %@</source>
        <extracomment>Progress, and the time left.</extracomment>
        <translation>%@, %@</translation>
    </message>
    <message id="SSecondsLeft" numerus="yes">
        <source>about %n seconds left</source>
        <translation>
            <numerusform>queda %n segundo aproximadamente</numerusform>
            <numerusform>quedan %n segundos aproximadamente</numerusform>
        </translation>
    </message>
    <message id="SMinutesLeft" numerus="yes">
        <source>about %n minutes left</source>
        <translation>
            <numerusform>queda %n minuto aproximadamente</numerusform>
            <numerusform>quedan %n minutos aproximadamente</numerusform>
        </translation>
    </message>
    <message id="SHoursLeft" numerus="yes">
        <source>about %n hours left</source>
        <translation>
            <numerusform>queda %n hora aproximadamente</numerusform>
            <numerusform>quedan %n horas aproximadamente</numerusform>
        </translation>
    </message>
    <message id="SStopping">
        <source>Stopping…</source>
        <extracomment>While the window waits for the worker to end.</extracomment>
        <translation>Deteniendo…</translation>
    </message>
    <message id="SAllRight" numerus="yes">
        <source>All %n addresses are right; there is nothing to apply.</source>
        <translation>
            <numerusform>La dirección es correcta; no hay nada que aplicar.</numerusform>
            <numerusform>Las %n direcciones son correctas; no hay nada que aplicar.</numerusform>
        </translation>
    </message>
    <message id="SCorrected" numerus="yes">
        <source>%n addresses were corrected.</source>
        <translation>
            <numerusform>Se corrigió %n dirección.</numerusform>
            <numerusform>Se corrigieron %n direcciones.</numerusform>
        </translation>
    </message>
    <message id="SNoneCorrected">
        <source>No address was corrected.</source>
        <translation>No se corrigió ninguna dirección.</translation>
    </message>
    <message id="SRight" numerus="yes">
        <source>%n were right.</source>
        <translation>
            <numerusform>%n era correcta.</numerusform>
            <numerusform>%n eran correctas.</numerusform>
        </translation>
    </message>
    <message id="SUnconfirmed" numerus="yes">
        <source>%n are well written, but not confirmed.</source>
        <extracomment>Sentence of the summary: unchanged addresses of which the service knows the form alone.</extracomment>
        <translation>
            <numerusform>%n está bien escrita, pero no confirmada.</numerusform>
            <numerusform>%n están bien escritas, pero no confirmadas.</numerusform>
        </translation>
    </message>
    <message id="SFormed" numerus="yes">
        <source>%n of these are written in the chosen form.</source>
        <extracomment>Sentence of the summary: unchanged addresses whose case or punctuation becomes that of the corrected ones.</extracomment>
        <translation>
            <numerusform>%n de ellas se escribe en la forma elegida.</numerusform>
            <numerusform>%n de ellas se escriben en la forma elegida.</numerusform>
        </translation>
    </message>
    <message id="STypedKept" numerus="yes">
        <source>%n addresses as typed</source>
        <extracomment>Part of SKept.</extracomment>
        <translation>
            <numerusform>%n dirección como se escribió</numerusform>
            <numerusform>%n direcciones como se escribieron</numerusform>
        </translation>
    </message>
    <message id="SErrorsKept" numerus="yes">
        <source>%n errors</source>
        <extracomment>Part of SKept.</extracomment>
        <translation>
            <numerusform>%n error</numerusform>
            <numerusform>%n errores</numerusform>
        </translation>
    </message>
    <message id="SChoicesKept" numerus="yes">
        <source>%n open choices</source>
        <extracomment>Part of SKept.</extracomment>
        <translation>
            <numerusform>%n elección pendiente</numerusform>
            <numerusform>%n elecciones pendientes</numerusform>
        </translation>
    </message>
    <message id="SPendingKept" numerus="yes">
        <source>%n addresses not checked</source>
        <extracomment>Part of SKept.</extracomment>
        <translation>
            <numerusform>%n dirección sin comprobar</numerusform>
            <numerusform>%n direcciones sin comprobar</numerusform>
        </translation>
    </message>
    <message id="SAnd">
        <source> and </source>
        <extracomment>Between parts of SKept.</extracomment>
        <translation> y </translation>
    </message>
    <message id="SKept">
        <source>Left as they are: %@.</source>
        <extracomment>What applying does not touch.</extracomment>
        <translation>Quedan como están: %@.</translation>
    </message>
    <message id="SBlanked" numerus="yes">
        <source>%n entries would be emptied.</source>
        <translation>
            <numerusform>%n entrada quedaría vacía.</numerusform>
            <numerusform>%n entradas quedarían vacías.</numerusform>
        </translation>
    </message>
    <message id="SNoNetwork">
        <source>There is no network connection.</source>
        <extracomment>First sentence of the banner.</extracomment>
        <translation>No hay conexión de red.</translation>
    </message>
    <message id="SServiceDown">
        <source>The address service does not answer.</source>
        <extracomment>First sentence of the banner.</extracomment>
        <translation>El servicio de direcciones no responde.</translation>
    </message>
    <message id="SNotChecked" numerus="yes">
        <source>%n addresses could not be checked.</source>
        <extracomment>Second sentence of the banner.</extracomment>
        <translation>
            <numerusform>No se pudo comprobar %n dirección.</numerusform>
            <numerusform>No se pudieron comprobar %n direcciones.</numerusform>
        </translation>
    </message>
    <message id="SNoAddresses">
        <source>There are no addresses to check.</source>
        <extracomment>Stands in place of an empty table.</extracomment>
        <translation>No hay direcciones que comprobar.</translation>
    </message>
    <message id="SNoneShown">
        <source>No address passes the filter.</source>
        <extracomment>Stands in place of an empty table.</extracomment>
        <translation>Ninguna dirección pasa el filtro.</translation>
    </message>
    <message id="SSpokenChanged">
        <source>%@ changed to %@</source>
        <extracomment>Spoken: a word and what it became.</extracomment>
        <translation>%@ cambia a %@</translation>
    </message>
    <message id="SSpokenAdded">
        <source>%@ added</source>
        <extracomment>Spoken: new words.</extracomment>
        <translation>se añade %@</translation>
    </message>
    <message id="SSpokenRemoved">
        <source>%@ removed</source>
        <extracomment>Spoken: words that are gone.</extracomment>
        <translation>se quita %@</translation>
    </message>
    <message id="SStatusOwn">
        <source>As Written</source>
        <extracomment>Status of an address whose corrected text is the person's own.</extracomment>
        <translation>Como la escribí</translation>
    </message>
    <message id="SSpokenMoved">
        <source>%@ moved from line %@ to line %@</source>
        <extracomment>What a screen reader says of a word that went into another line.</extracomment>
        <translation>%@ pasó de la línea %@ a la línea %@</translation>
    </message>
    <message id="SMoreChanges" numerus="yes">
        <source>%n more changes</source>
        <extracomment>Last line of a tool tip.</extracomment>
        <translation>
            <numerusform>%n cambio más</numerusform>
            <numerusform>%n cambios más</numerusform>
        </translation>
    </message>
    <message id="SEdit">
        <source>E&amp;dit… (F2)</source>
        <extracomment>Button that lets an address be edited that has an outcome.</extracomment>
        <translation>E&amp;ditar… (F2)</translation>
    </message>
    <message id="SEditAddress">
        <source>Text to c&amp;heck:</source>
        <extracomment>Above the field for the text that the service is asked about.</extracomment>
        <translation>Te&amp;xto que comprobar:</translation>
    </message>
    <message id="SEditAddressName">
        <source>Text to check</source>
        <extracomment>Spoken name of that field.</extracomment>
        <translation>Texto que comprobar</translation>
    </message>
    <message id="SEditFixed">
        <source>As I &amp;write it:</source>
        <extracomment>Above the field for the person's own correction.</extracomment>
        <translation>Tal como lo escribo &amp;yo:</translation>
    </message>
    <message id="SEditFixedName">
        <source>Corrected text as I write it</source>
        <extracomment>Spoken name of that field.</extracomment>
        <translation>Texto corregido tal como lo escribo yo</translation>
    </message>
    <message id="SKeepText">
        <source>&amp;Keep My Text</source>
        <extracomment>Button that takes the text in the field as the correction.</extracomment>
        <translation>&amp;Quedarse con mi texto</translation>
    </message>
    <message id="STakeTyped">
        <source>Ta&amp;ke as Typed</source>
        <extracomment>Button that leaves the selected addresses as they are.</extracomment>
        <translation>De&amp;jar como está escrita</translation>
    </message>
    <message id="SAcceptDoubtful" numerus="yes">
        <source>Accept %n &amp;Doubtful</source>
        <extracomment>Button for several selected addresses: makes the doubtful corrections among them.</extracomment>
        <translation>
            <numerusform>Aceptar %n &amp;dudosa</numerusform>
            <numerusform>Aceptar %n &amp;dudosas</numerusform>
        </translation>
    </message>
    <message id="SFixedOwn">
        <source>This is your own text; the service was not asked about it.</source>
        <extracomment>Note above a correction that the person wrote.</extracomment>
        <translation>Este texto es suyo; no se preguntó por él al servicio.</translation>
    </message>
    <message id="SCut" numerus="yes">
        <source>%n more characters are not shown.</source>
        <extracomment>Below a very long line.</extracomment>
        <translation>
            <numerusform>No se muestra %n carácter más.</numerusform>
            <numerusform>No se muestran %n caracteres más.</numerusform>
        </translation>
    </message>
    <message id="SLongLine">
        <source>This line is too long to be edited here.</source>
        <extracomment>Tool tip of a field that cannot be edited.</extracomment>
        <translation>Esta línea es demasiado larga para editarla aquí.</translation>
    </message>
    <message id="SMarkRest">
        <source>Mar&amp;k the Rest</source>
        <extracomment>Button that shows and marks all of a very long line.</extracomment>
        <translation>Marcar tam&amp;bién el resto</translation>
    </message>
    <message id="SStop">
        <source>Sto&amp;p</source>
        <extracomment>Button that ends the run after the address under way.</extracomment>
        <translation>&amp;Parar</translation>
    </message>
    <message id="SGoOn">
        <source>Go &amp;On</source>
        <extracomment>Button that asks about the rest after a stop.</extracomment>
        <translation>&amp;Proseguir</translation>
    </message>
    <message id="SStopped">
        <source>Stopped: %@ of %@ checked.</source>
        <extracomment>Below the list after a stop.</extracomment>
        <translation>Detenido: %@ de %@ comprobadas.</translation>
    </message>
    <message id="SWaiting">
        <source>Waiting for the service, %@ s</source>
        <extracomment>Beside the progress while no answer comes; the number is of seconds.</extracomment>
        <translation>Esperando al servicio, %@ s</translation>
    </message>
    <message id="SGaveUp" numerus="yes">
        <source>The address service has not answered for %n minutes.</source>
        <extracomment>Banner after a run that gave up waiting.</extracomment>
        <translation>
            <numerusform>El servicio de direcciones no responde desde hace %n minuto.</numerusform>
            <numerusform>El servicio de direcciones no responde desde hace %n minutos.</numerusform>
        </translation>
    </message>
    <message id="SNotAskedYet" numerus="yes">
        <source>%n addresses were not asked about.</source>
        <extracomment>Second sentence of that banner.</extracomment>
        <translation>
            <numerusform>No se preguntó por %n dirección.</numerusform>
            <numerusform>No se preguntó por %n direcciones.</numerusform>
        </translation>
    </message>
    <message id="SNotAskedShort">
        <source>Not asked about</source>
        <extracomment>Status, in a report, of an address that has no outcome.</extracomment>
        <translation>Sin comprobar</translation>
    </message>
    <message id="SSeveral" numerus="yes">
        <source>%n addresses selected</source>
        <extracomment>Above what can be done with them; a line on how they stand follows.</extracomment>
        <translation>
            <numerusform>%n dirección seleccionada</numerusform>
            <numerusform>%n direcciones seleccionadas</numerusform>
        </translation>
    </message>
    <message id="SReasonName">
        <source>Show errors for the reason</source>
        <extracomment>Spoken name of the list of reasons.</extracomment>
        <translation>Mostrar los errores por el motivo</translation>
    </message>
    <message id="SAllReasons">
        <source>All Reasons</source>
        <extracomment>First entry of the list of reasons.</extracomment>
        <translation>Todos los motivos</translation>
    </message>
    <message id="SReasonCount">
        <source>%@ (%@)</source>
        <extracomment>Entry of the list of reasons: the message and how many there are.</extracomment>
        <translation>%@ (%@)</translation>
    </message>
    <message id="SSearch">
        <source>Search (Ctrl+F)</source>
        <extracomment>Stands in the empty search field.</extracomment>
        <translation>Buscar (Ctrl+F)</translation>
    </message>
    <message id="SSearchName">
        <source>Search in both texts</source>
        <extracomment>Spoken name of the search field.</extracomment>
        <translation>Buscar en ambos textos</translation>
    </message>
    <message id="SMore">
        <source>&amp;More</source>
        <extracomment>Button that opens the menu.</extracomment>
        <translation>&amp;Herramientas</translation>
    </message>
    <message id="SUndo">
        <source>Undo</source>
        <extracomment>Menu.</extracomment>
        <translation>Deshacer</translation>
    </message>
    <message id="SUndoStep">
        <source>Undo %@</source>
        <extracomment>Menu; the step follows.</extracomment>
        <translation>Deshacer: %@</translation>
    </message>
    <message id="SRedo">
        <source>Redo</source>
        <extracomment>Menu.</extracomment>
        <translation>Rehacer</translation>
    </message>
    <message id="SRedoStep">
        <source>Redo %@</source>
        <extracomment>Menu; the step follows.</extracomment>
        <translation>Rehacer: %@</translation>
    </message>
    <message id="SCopy">
        <source>Copy Rows</source>
        <extracomment>Menu.</extracomment>
        <translation>Copiar filas</translation>
    </message>
    <message id="SFind">
        <source>Search</source>
        <extracomment>Menu.</extracomment>
        <translation>Buscar</translation>
    </message>
    <message id="SSameForAll">
        <source>The Same for All…</source>
        <extracomment>Menu: makes the person's change in other addresses, too.</extracomment>
        <translation>Lo mismo para todas…</translation>
    </message>
    <message id="SHostOrder">
        <source>Gi&amp;ven Order</source>
        <extracomment>Button beside the filter and menu: ends the sorting by a column.</extracomment>
        <translation>Orden de la &amp;lista</translation>
    </message>
    <message id="SSummary">
        <source>Summar&amp;y…</source>
        <extracomment>Button that shows how the run went.</extracomment>
        <translation>Resu&amp;men…</translation>
    </message>
    <message id="SSummaryAction">
        <source>Summary and Report…</source>
        <extracomment>Menu: the same.</extracomment>
        <translation>Resumen e informe…</translation>
    </message>
    <message id="SStepAsk" numerus="yes">
        <source>Check of %n</source>
        <extracomment>A step, after Undo: addresses that were asked about again.</extracomment>
        <translation>
            <numerusform>comprobación de %n</numerusform>
            <numerusform>comprobación de %n</numerusform>
        </translation>
    </message>
    <message id="SStepChoose" numerus="yes">
        <source>Choice for %n</source>
        <extracomment>A step, after Undo.</extracomment>
        <translation>
            <numerusform>elección para %n</numerusform>
            <numerusform>elección para %n</numerusform>
        </translation>
    </message>
    <message id="SStepUse" numerus="yes">
        <source>Text of %n</source>
        <extracomment>A step, after Undo: the person's text was taken.</extracomment>
        <translation>
            <numerusform>texto de %n</numerusform>
            <numerusform>texto de %n</numerusform>
        </translation>
    </message>
    <message id="SStepTyped" numerus="yes">
        <source>Take as Typed of %n</source>
        <extracomment>A step, after Undo.</extracomment>
        <translation>
            <numerusform>dejar como está %n</numerusform>
            <numerusform>dejar como están %n</numerusform>
        </translation>
    </message>
    <message id="SStepAccept" numerus="yes">
        <source>Acceptance of %n</source>
        <extracomment>Step of the person, in "Undo …".</extracomment>
        <translation>
            <numerusform>Aceptación de %n</numerusform>
            <numerusform>Aceptación de %n</numerusform>
        </translation>
    </message>
    <message id="SStepIgnore" numerus="yes">
        <source>Ignore of %n</source>
        <extracomment>A step, after Undo.</extracomment>
        <translation>
            <numerusform>omisión de %n</numerusform>
            <numerusform>omisión de %n</numerusform>
        </translation>
    </message>
    <message id="SStepSame" numerus="yes">
        <source>Same Change in %n</source>
        <extracomment>A step, after Undo.</extracomment>
        <translation>
            <numerusform>mismo cambio en %n</numerusform>
            <numerusform>mismo cambio en %n</numerusform>
        </translation>
    </message>
    <message id="SLeaveQuestion">
        <source>Close the window? There is work in it that is not applied.</source>
        <extracomment>Question at closing.</extracomment>
        <translation>¿Cerrar la ventana? Contiene trabajo sin aplicar.</translation>
    </message>
    <message id="SLeaveDiscard">
        <source>&amp;Discard</source>
        <extracomment>Answer to it.</extracomment>
        <translation>&amp;Descartar</translation>
    </message>
    <message id="SLeaveStay">
        <source>&amp;Stay</source>
        <extracomment>Answer to it.</extracomment>
        <translation>&amp;Seguir aquí</translation>
    </message>
    <message id="SSameQuestion" numerus="yes">
        <source>Make the same change in %n more addresses?</source>
        <extracomment>Question; the change and the addresses follow.</extracomment>
        <translation>
            <numerusform>¿Hacer el mismo cambio en %n dirección más?</numerusform>
            <numerusform>¿Hacer el mismo cambio en %n direcciones más?</numerusform>
        </translation>
    </message>
    <message id="SSameChange">
        <source>&amp;Change and Check</source>
        <extracomment>Answer to it.</extracomment>
        <translation>&amp;Cambiar y comprobar</translation>
    </message>
    <message id="SSameLeave">
        <source>&amp;Leave Them</source>
        <extracomment>Answer to it.</extracomment>
        <translation>&amp;Dejarlas</translation>
    </message>
    <message id="SMoreAddresses" numerus="yes">
        <source>and %n more</source>
        <extracomment>Behind the first addresses of a longer list.</extracomment>
        <translation>
            <numerusform>y %n más</numerusform>
            <numerusform>y %n más</numerusform>
        </translation>
    </message>
    <message id="SColumnReason">
        <source>Reason</source>
        <extracomment>Column of a report.</extracomment>
        <translation>Motivo</translation>
    </message>
    <message id="SReportTitle">
        <source>Address Check</source>
        <extracomment>Title of the summary and of the report.</extracomment>
        <translation>Comprobación de direcciones</translation>
    </message>
    <message id="SReportName">
        <source>address-check</source>
        <extracomment>Name of the file that is offered, without an ending.</extracomment>
        <translation>comprobacion-de-direcciones</translation>
    </message>
    <message id="SReportCsv">
        <source>Table</source>
        <extracomment>Kind of file.</extracomment>
        <translation>Tabla</translation>
    </message>
    <message id="SReportHtml">
        <source>Web page</source>
        <extracomment>Kind of file.</extracomment>
        <translation>Página web</translation>
    </message>
    <message id="SReportFailed">
        <source>%@ was not saved: %@.</source>
        <extracomment>The file and why.</extracomment>
        <translation>No se guardó %@: %@.</translation>
    </message>
    <message id="SSaveReport">
        <source>&amp;Save Report…</source>
        <extracomment>Button of the summary.</extracomment>
        <translation>&amp;Guardar informe…</translation>
    </message>
    <message id="SSaveReportTitle">
        <source>Save the report</source>
        <extracomment>Title of the file dialog.</extracomment>
        <translation>Guardar el informe</translation>
    </message>
    <message id="SClose">
        <source>&amp;Close</source>
        <extracomment>Button of the summary.</extracomment>
        <translation>&amp;Cerrar</translation>
    </message>
    <message id="SSumRight">
        <source>Right as typed</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Correctas como están</translation>
    </message>
    <message id="SSumUnconfirmed">
        <source>Well written, not confirmed</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Bien escritas, sin confirmar</translation>
    </message>
    <message id="SSumTyped">
        <source>Left as typed</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Dejadas como se escribieron</translation>
    </message>
    <message id="SSumFixed">
        <source>Corrected</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Corregidas</translation>
    </message>
    <message id="SSumOwn">
        <source>As you wrote them</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Como las escribió usted</translation>
    </message>
    <message id="SSumDoubtful">
        <source>Doubtful, not decided on</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Dudosas, sin decidir</translation>
    </message>
    <message id="SSumMultiple">
        <source>To be chosen</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Por elegir</translation>
    </message>
    <message id="SSumErrors">
        <source>Errors</source>
        <extracomment>Line of the summary; the reasons follow.</extracomment>
        <translation>Errores</translation>
    </message>
    <message id="SSumUnanswered">
        <source>Not answered by the service</source>
        <extracomment>Line of the summary: the service or the network failed.</extracomment>
        <translation>Sin respuesta del servicio</translation>
    </message>
    <message id="SSumPending">
        <source>Not asked about</source>
        <extracomment>Line of the summary.</extracomment>
        <translation>Sin comprobar</translation>
    </message>
    <message id="SSumConfirmation">
        <source>How far the answers are confirmed</source>
        <extracomment>Line of the summary; a line for each degree follows.</extracomment>
        <translation>Hasta dónde se confirman las respuestas</translation>
    </message>
    <message id="SCandidateIntroduction">
        <source>The service knows this address for several numbers. Which one is meant?</source>
        <extracomment>Above the address in the dialog that asks for a number.</extracomment>
        <translation>El servicio conoce esta dirección para varios números. ¿Cuál es?</translation>
    </message>
    <message id="SCandidateWhole">
        <source>The service is asked about this address.</source>
        <extracomment>Above the address in the dialog, where no number is left to ask for.</extracomment>
        <translation>Se pregunta al servicio por esta dirección.</translation>
    </message>
    <message id="SCandidateNumber">
        <source>House &amp;number, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number.</extracomment>
        <translation>&amp;Número de la casa, de %@ a %@:</translation>
    </message>
    <message id="SCandidateNumberEven">
        <source>House &amp;number, even, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number.</extracomment>
        <translation>&amp;Número par de la casa, de %@ a %@:</translation>
    </message>
    <message id="SCandidateNumberOdd">
        <source>House &amp;number, odd, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number.</extracomment>
        <translation>&amp;Número impar de la casa, de %@ a %@:</translation>
    </message>
    <message id="SCandidateBox">
        <source>Box &amp;number, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number of a post-office box.</extracomment>
        <translation>&amp;Número del apartado, de %@ a %@:</translation>
    </message>
    <message id="SCandidateUnit">
        <source>&amp;Unit, %@ to %@:</source>
        <extracomment>Caption of a field: first and last unit.</extracomment>
        <translation>&amp;Unidad, de %@ a %@:</translation>
    </message>
    <message id="SCandidateUnitEven">
        <source>&amp;Unit, even, %@ to %@:</source>
        <extracomment>Caption of a field: first and last unit.</extracomment>
        <translation>&amp;Unidad par, de %@ a %@:</translation>
    </message>
    <message id="SCandidateUnitOdd">
        <source>&amp;Unit, odd, %@ to %@:</source>
        <extracomment>Caption of a field: first and last unit.</extracomment>
        <translation>&amp;Unidad impar, de %@ a %@:</translation>
    </message>
    <message id="SCandidateCheck">
        <source>Chec&amp;k</source>
        <extracomment>Button: asks the service about the address with the number.</extracomment>
        <translation>Co&amp;mprobar</translation>
    </message>
    <message id="SCandidateKeep">
        <source>K&amp;eep It All the Same</source>
        <extracomment>Button: takes the address though it is not confirmed.</extracomment>
        <translation>Con&amp;servar de todos modos</translation>
    </message>
    <message id="SCandidateAsking">
        <source>Asking the service…</source>
        <translation>Preguntando al servicio…</translation>
    </message>
    <message id="SCandidateOutside">
        <source>%@ is not between %@ and %@. Keep it if you know that it is right.</source>
        <extracomment>The number, and the range that it is not in.</extracomment>
        <translation>%@ no está entre %@ y %@. Consérvelo si sabe que es correcto.</translation>
    </message>
    <message id="SCandidateNotEven">
        <source>%@ is not an even number, as those from %@ to %@ are. Keep it if you know that it is right.</source>
        <extracomment>The number, and the range of even numbers.</extracomment>
        <translation>%@ no es un número par, como los de %@ a %@. Consérvelo si sabe que es correcto.</translation>
    </message>
    <message id="SCandidateNotOdd">
        <source>%@ is not an odd number, as those from %@ to %@ are. Keep it if you know that it is right.</source>
        <extracomment>The number, and the range of odd numbers.</extracomment>
        <translation>%@ no es un número impar, como los de %@ a %@. Consérvelo si sabe que es correcto.</translation>
    </message>
    <message id="SCandidateDoubt">
        <source>The service does not confirm this address. %@</source>
        <extracomment>Followed by the reason.</extracomment>
        <translation>El servicio no confirma esta dirección. %@</translation>
    </message>
    <message id="SCandidateNumberNotKnown">
        <source>The street is known, the number is not.</source>
        <extracomment>A reason.</extracomment>
        <translation>Se conoce la calle, pero no el número.</translation>
    </message>
    <message id="SCandidateUnitMissing">
        <source>The building is known, and its unit is missing.</source>
        <extracomment>A reason.</extracomment>
        <translation>Se conoce el edificio, y falta la unidad.</translation>
    </message>
    <message id="SCandidateUnitNotKnown">
        <source>The building is known, the unit is not.</source>
        <extracomment>A reason.</extracomment>
        <translation>Se conoce el edificio, pero no la unidad.</translation>
    </message>
    <message id="SCandidateFormOnly">
        <source>Nobody has checked the street.</source>
        <extracomment>A reason.</extracomment>
        <translation>Nadie ha comprobado la calle.</translation>
    </message>
    <message id="SDesignatorTitle">
        <source>Choose One Address</source>
        <extracomment>Title of the designation dialog.</extracomment>
        <translation>Elegir una dirección</translation>
    </message>
    <message id="SDesignatorIntroduction">
        <source>The postal service knows this address for several units. Which one is meant?</source>
        <translation>El servicio postal conoce esta dirección para varias unidades. ¿Cuál es?</translation>
    </message>
    <message id="SDesignatorAddress">
        <source>&amp;Address:</source>
        <translation>&amp;Dirección:</translation>
    </message>
    <message id="SDesignatorAddressName">
        <source>Address with the ranges it spans</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Dirección con los intervalos que abarca</translation>
    </message>
    <message id="SDesignatorNumber">
        <source>House &amp;number, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest number.</extracomment>
        <translation>&amp;Número de la casa, de %@ a %@:</translation>
    </message>
    <message id="SDesignatorNumberName">
        <source>House number</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Número de la casa</translation>
    </message>
    <message id="SDesignatorCharacter">
        <source>&amp;Last character of the unit, %@ to %@:</source>
        <extracomment>Caption of a field: lowest and highest character.</extracomment>
        <translation>Ú&amp;ltimo carácter de la unidad, de %@ a %@:</translation>
    </message>
    <message id="SDesignatorCharacterName">
        <source>Last character of the unit</source>
        <extracomment>Spoken name of a field.</extracomment>
        <translation>Último carácter de la unidad</translation>
    </message>
    <message id="SDesignatorOK">
        <source>&amp;OK</source>
        <translation>&amp;Aceptar</translation>
    </message>
    <message id="SDesignatorOKName">
        <source>OK</source>
        <extracomment>Spoken name of a button.</extracomment>
        <translation>Aceptar</translation>
    </message>
    <message id="SDesignatorCancel">
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message id="SDesignatorCancelName">
        <source>Cancel</source>
        <extracomment>Spoken name of a button.</extracomment>
        <translation>Cancelar</translation>
    </message>
    <message id="SCore-rule-suffix">
        <translation>tipo de vía en forma normal</translation>
    </message>
    <message id="SCore-rule-directional">
        <translation>punto cardinal en forma normal</translation>
    </message>
    <message id="SCore-rule-unit">
        <translation>unidad en forma normal</translation>
    </message>
    <message id="SCore-rule-state">
        <translation>estado en forma normal</translation>
    </message>
    <message id="SCore-rule-box">
        <translation>apartado postal en forma normal</translation>
    </message>
    <message id="SCore-rule-route">
        <translation>ruta en forma normal</translation>
    </message>
    <message id="SCore-rule-highway">
        <translation>carretera en forma normal</translation>
    </message>
    <message id="SCore-rule-number">
        <translation>número en forma normal</translation>
    </message>
    <message id="SCore-rule-city">
        <translation>ciudad en forma normal</translation>
    </message>
    <message id="SCore-rule-word">
        <translation>palabra de la calle en forma normal</translation>
    </message>
    <message id="SCore-rule-spacing">
        <translation>escrito junto o separado</translation>
    </message>
    <message id="SCore-rule-accent">
        <translation>acento</translation>
    </message>
    <message id="SCore-rule-unit-place">
        <translation>unidad detrás de la calle</translation>
    </message>
    <message id="SCore-rule-urbanization-place">
        <translation>orden de una dirección de Puerto Rico</translation>
    </message>
    <message id="SCore-rule-spelling">
        <translation>ortografía de la calle</translation>
    </message>
    <message id="SCore-rule-city-spelling">
        <translation>ortografía de la ciudad</translation>
    </message>
    <message id="SCore-rule-zip-of-street">
        <translation>código ZIP de esta calle</translation>
    </message>
    <message id="SCore-rule-city-of-zip">
        <translation>ciudad de este código ZIP</translation>
    </message>
    <message id="SCore-rule-state-of-zip">
        <translation>estado de este código ZIP</translation>
    </message>
    <message id="SCore-rule-zip4-added">
        <translation>ZIP+4 añadido</translation>
    </message>
    <message id="SCore-rule-zip4-changed">
        <translation>ZIP+4 de esta dirección</translation>
    </message>
    <message id="SCore-rule-zip4-dropped">
        <translation>se quitó el ZIP+4 de otra dirección</translation>
    </message>
    <message id="SCore-rule-suffix-added">
        <translation>tipo de vía añadido</translation>
    </message>
    <message id="SCore-rule-suffix-changed">
        <translation>tipo de vía de esta calle</translation>
    </message>
    <message id="SCore-rule-suffix-dropped">
        <translation>se quitó el tipo de vía</translation>
    </message>
    <message id="SCore-rule-directional-added">
        <translation>punto cardinal añadido</translation>
    </message>
    <message id="SCore-rule-directional-changed">
        <translation>punto cardinal de esta calle</translation>
    </message>
    <message id="SCore-rule-directional-dropped">
        <translation>se quitó el punto cardinal</translation>
    </message>
    <message id="SCore-rule-unit-designator">
        <translation>cómo se llama la unidad</translation>
    </message>
    <message id="SCore-rule-urbanization">
        <translation>urbanización de esta dirección</translation>
    </message>
    <message id="SCore-rule-number-changed">
        <translation>otro número</translation>
    </message>
    <message id="SCore-rule-number-added">
        <translation>número añadido</translation>
    </message>
    <message id="SCore-rule-number-lost">
        <translation>número perdido</translation>
    </message>
    <message id="SCore-rule-number-moved">
        <translation>número en otro lugar</translation>
    </message>
    <message id="SCore-rule-sign-lost">
        <translation>signo perdido en un número</translation>
    </message>
    <message id="SCore-rule-word-changed">
        <translation>otra palabra</translation>
    </message>
    <message id="SCore-rule-word-added">
        <translation>palabra añadida</translation>
    </message>
    <message id="SCore-rule-word-lost">
        <translation>palabra perdida</translation>
    </message>
    <message id="SCore-rule-word-moved">
        <translation>palabra en otro lugar</translation>
    </message>
    <message id="SCore-rule-word-doubled">
        <translation>palabra repetida</translation>
    </message>
    <message id="SCore-rule-word-crossed">
        <translation>palabra en otra línea</translation>
    </message>
    <message id="SCore-rule-line-cut">
        <translation>línea partida en dos</translation>
    </message>
    <message id="SCore-rule-route-left">
        <translation>apartado separado de su ruta</translation>
    </message>
    <message id="SCore-rule-street-changed">
        <translation>otro nombre de calle</translation>
    </message>
    <message id="SCore-rule-street-other">
        <translation>una calle que no puede ser la indicada</translation>
    </message>
    <message id="SCore-rule-suffix-unexplained">
        <translation>otro tipo de vía</translation>
    </message>
    <message id="SCore-rule-directional-unexplained">
        <translation>otro punto cardinal</translation>
    </message>
    <message id="SCore-rule-unit-changed">
        <translation>otra unidad</translation>
    </message>
    <message id="SCore-rule-zip-changed">
        <translation>otro código ZIP</translation>
    </message>
    <message id="SCore-rule-zip-lost">
        <translation>código ZIP perdido</translation>
    </message>
    <message id="SCore-rule-zip4-lost">
        <translation>ZIP+4 perdido</translation>
    </message>
    <message id="SCore-rule-city-changed">
        <translation>otra ciudad</translation>
    </message>
    <message id="SCore-rule-state-changed">
        <translation>otro estado</translation>
    </message>
    <message id="SCore-rule-unit-sign-lost">
        <translation>signo de número de una unidad perdido</translation>
    </message>
    <message id="SCore-rule-too-long">
        <translation>hay demasiadas diferencias</translation>
    </message>
    <message id="SCore-doubt-number-changed">
        <translation>El número %1 pasó a ser %2.</translation>
    </message>
    <message id="SCore-doubt-number-added">
        <translation>El número %2 no se había escrito.</translation>
    </message>
    <message id="SCore-doubt-number-lost">
        <translation>Se perdió el número %1.</translation>
    </message>
    <message id="SCore-doubt-number-moved">
        <translation>El número %2 está en otro lugar que donde se escribió.</translation>
    </message>
    <message id="SCore-doubt-sign-lost">
        <translation>%1 pasó a ser %2: se perdió un signo dentro de un número.</translation>
    </message>
    <message id="SCore-doubt-word-changed">
        <translation>%1 pasó a ser %2.</translation>
    </message>
    <message id="SCore-doubt-word-added">
        <translation>%2 no se había escrito.</translation>
    </message>
    <message id="SCore-doubt-word-lost">
        <translation>Se perdió %1.</translation>
    </message>
    <message id="SCore-doubt-word-moved">
        <translation>%2 está en otro lugar que donde se escribió.</translation>
    </message>
    <message id="SCore-doubt-word-doubled">
        <translation>%2 se escribió una vez y aparece dos veces.</translation>
    </message>
    <message id="SCore-doubt-word-crossed">
        <translation>%2 está en otra línea que en la que se escribió.</translation>
    </message>
    <message id="SCore-doubt-line-cut">
        <translation>La línea se partió en dos delante de %2.</translation>
    </message>
    <message id="SCore-doubt-route-left">
        <translation>El apartado se separó de su ruta: %1 pasó a ser %2.</translation>
    </message>
    <message id="SCore-doubt-street-changed">
        <translation>La calle %1 pasó a ser %2, y el servicio no dijo por qué.</translation>
    </message>
    <message id="SCore-doubt-street-other">
        <translation>La calle %1 pasó a ser %2, que difícilmente puede ser la indicada.</translation>
    </message>
    <message id="SCore-doubt-suffix-unexplained">
        <translation>El tipo de vía %1 pasó a ser %2, y el servicio no dijo por qué.</translation>
    </message>
    <message id="SCore-doubt-directional-unexplained">
        <translation>El punto cardinal %1 pasó a ser %2, y el servicio no dijo por qué.</translation>
    </message>
    <message id="SCore-doubt-unit-changed">
        <translation>La unidad %1 pasó a ser %2, y el servicio no dijo por qué.</translation>
    </message>
    <message id="SCore-doubt-zip-changed">
        <translation>El código ZIP %1 pasó a ser %2, y el servicio no dijo por qué.</translation>
    </message>
    <message id="SCore-doubt-zip-lost">
        <translation>Se perdió el código ZIP %1.</translation>
    </message>
    <message id="SCore-doubt-zip4-lost">
        <translation>Se perdió el ZIP+4 %1, aunque la dirección es la misma.</translation>
    </message>
    <message id="SCore-doubt-city-changed">
        <translation>La ciudad %1 pasó a ser %2, y el servicio no dijo por qué.</translation>
    </message>
    <message id="SCore-doubt-state-changed">
        <translation>El estado %1 pasó a ser %2, y el servicio no dijo por qué.</translation>
    </message>
    <message id="SCore-doubt-unit-sign-lost">
        <translation>Se perdió el signo de número delante de %1, que decía que es una unidad.</translation>
    </message>
    <message id="SCore-doubt-too-long">
        <translation>Hay más palabras distintas de las que se pueden comparar.</translation>
    </message>
    <message id="SCore-doubt-unknown">
        <translation>El cambio no tiene explicación.</translation>
    </message>
    <message id="SCore-nothing">
        <translation>nada</translation>
    </message>
    <message id="SCore-no-words">
        <translation>no dio ninguna razón.</translation>
    </message>
    <message id="SCore-left-alone-rural-route">
        <translation>Una ruta rural, una ruta por contrato o una «star route»: no se puede comprobar y queda como se escribió.</translation>
    </message>
    <message id="SCore-left-alone-foreign-country">
        <translation>La última línea nombra un país que no es Estados Unidos: la dirección queda como se escribió.</translation>
    </message>
    <message id="SCore-left-alone-box">
        <translation>Un apartado postal con una letra en su número: no se puede comprobar y queda como se escribió.</translation>
    </message>
    <message id="SCore-left-alone-general-delivery">
        <translation>General Delivery: no tiene un número que comprobar y queda como se escribió.</translation>
    </message>
    <message id="SCore-left-alone-puerto-rico">
        <translation>Una dirección de Puerto Rico por bloque o kilómetro: no se puede comprobar y queda como se escribió.</translation>
    </message>
    <message id="SCore-confirmation-confirmed">
        <translation>confirmada</translation>
    </message>
    <message id="SCore-confirmation-unit-missing">
        <translation>confirmada salvo la unidad, que falta</translation>
    </message>
    <message id="SCore-confirmation-unit-not-known">
        <translation>confirmada salvo la unidad, que no se conoce</translation>
    </message>
    <message id="SCore-confirmation-number-not-known">
        <translation>se conoce la calle, pero no el número</translation>
    </message>
    <message id="SCore-confirmation-form-only">
        <translation>solo la forma: nadie ha comprobado la calle</translation>
    </message>
    <message id="SCore-source-base">
        <translation>Según la base de direcciones %1 del %2.</translation>
    </message>
    <message id="SCore-source-zip-list">
        <translation>Según la lista de códigos ZIP.</translation>
    </message>
    <message id="SCore-source-upstream">
        <translation>Según el servicio consultado %1.</translation>
    </message>
    <message id="SCore-source-cache">
        <translation>Según el servicio consultado %1, que respondió el %2.</translation>
    </message>
    <message id="SCore-unread-empty">
        <translation>No hay texto.</translation>
    </message>
    <message id="SCore-unread-foreign-country">
        <translation>La última línea nombra un país que no es Estados Unidos: la dirección no se toca.</translation>
    </message>
    <message id="SCore-unread-zip-short">
        <translation>El código ZIP tiene cuatro cifras; en este estado empieza por 0. Ponga el 0 delante.</translation>
    </message>
    <message id="SCore-unread-zip-missing">
        <translation>Falta el código ZIP. Escriba sus cinco cifras detrás del estado.</translation>
    </message>
    <message id="SCore-unread-state-missing">
        <translation>Falta el estado delante del código ZIP. Escriba ahí sus dos letras.</translation>
    </message>
    <message id="SCore-unread-number-in-words">
        <translation>El número de la casa está escrito con letras. Escríbalo con cifras.</translation>
    </message>
    <message id="SCore-unread-number-missing">
        <translation>Falta el número de la casa. La línea de la calle empieza por él, o es un apartado: PO BOX 12.</translation>
    </message>
    <message id="SCore-unread-unread">
        <translation>No se encontró ninguna dirección. Escriba la calle, o el apartado, en una línea y la ciudad, el estado y el código ZIP en la siguiente.</translation>
    </message>
    <message id="SCore-failure-no-network">
        <translation>No hay conexión a internet: no hay camino a %1, o nadie que busque su nombre. Revise la red.</translation>
    </message>
    <message id="SCore-failure-not-resolved">
        <translation>No existe el equipo %1. Revise el nombre del servidor.</translation>
    </message>
    <message id="SCore-failure-refused">
        <translation>En %1 no responde nadie (conexión rechazada). Inicie allí el servicio o indique otro servidor.</translation>
    </message>
    <message id="SCore-failure-timed-out">
        <translation>El servicio de %1 no respondió a tiempo. Inténtelo más tarde o dele más tiempo.</translation>
    </message>
    <message id="SCore-failure-broke-off">
        <translation>La conexión con %1 terminó antes que la respuesta. Inténtelo más tarde.</translation>
    </message>
    <message id="SCore-failure-bad-answer">
        <translation>Lo que responde en %1 no es un servicio Verify. Revise el nombre del servidor.</translation>
    </message>
    <message id="SCore-failure-abandoned">
        <translation>Se renunció a la pregunta a %1.</translation>
    </message>
    <message id="SCore-failure-http-status">
        <translation>El servicio de %1 responde con el estado HTTP %2. Inténtelo más tarde o revise el nombre del servidor.</translation>
    </message>
    <message id="SCore-failure-service-error">
        <translation>El servicio dice: %1 La dirección no se examinó.</translation>
    </message>
    <message id="SCore-failure-address-invalid">
        <translation>El servicio dice: %1 Revise la línea de la calle: número, calle y unidad.</translation>
    </message>
    <message id="SCore-failure-zip-invalid">
        <translation>El servicio dice: %1 Revise el código ZIP: no existe o es de otro lugar.</translation>
    </message>
    <message id="SCore-failure-city-invalid">
        <translation>El servicio dice: %1 Revise la ciudad: en el estado no hay ninguna con ese nombre.</translation>
    </message>
    <message id="SCore-failure-not-found">
        <translation>El servicio dice: %1 Revise la calle y su número, y el código ZIP.</translation>
    </message>
    <message id="SCore-failure-state-invalid">
        <translation>El servicio dice: %1 Revise el estado: escriba sus dos letras.</translation>
    </message>
    <message id="SCore-failure-several-found">
        <translation>El servicio dice: %1 Escriba más: un punto cardinal, el tipo de vía o el código ZIP.</translation>
    </message>
    <message id="SCore-failure-turned-down">
        <translation>El servicio dice: %1 Revise la dirección entera.</translation>
    </message>
</context>
</TS>
