<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>postwright::addressbook::AddEntries</name>
    <message numerus="yes">
        <source>Add %n entries</source>
        <translation>
            <numerusform>Añadir %n entrada</numerusform>
            <numerusform>Añadir %n entradas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::AddressBookWindow</name>
    <message>
        <source>About Address Book</source>
        <translation>Acerca de Libreta de direcciones</translation>
    </message>
    <message>
        <source>Address Book %1, a part of Postwright.

Corrects US postal addresses and prints them on label sheets.</source>
        <translation>Libreta de direcciones %1, parte de Postwright.

Corrige direcciones postales de Estados Unidos y las imprime en hojas de etiquetas.</translation>
    </message>
    <message>
        <source>Show the &amp;Failed</source>
        <translation>Mostrar las que tienen &amp;error</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>No se encontró nada</translation>
    </message>
    <message>
        <source>No entry is what you search for.</source>
        <translation>Ninguna entrada coincide con la búsqueda.</translation>
    </message>
    <message>
        <source>No address book is open</source>
        <translation>No hay ninguna libreta abierta</translation>
    </message>
    <message>
        <source>Open a CSV file, a workbook, vCards or an address book, or drop one here.
You can also begin with Edit &gt; Add Entry.</source>
        <translation>Abra un archivo CSV, un libro de cálculo, tarjetas vCard o una libreta de direcciones, o suéltelo aquí.
También puede empezar con Editar &gt; Añadir entrada.</translation>
    </message>
    <message>
        <source>“%1” has no entries</source>
        <translation>«%1» no tiene entradas</translation>
    </message>
    <message>
        <source>Give it its first one.</source>
        <translation>Añada la primera.</translation>
    </message>
    <message>
        <source>%1[*] — %2</source>
        <translation>%1[*] — %2</translation>
    </message>
    <message>
        <source>Postwright Address Book</source>
        <translation>Libreta de direcciones Postwright</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::AskDialog</name>
    <message>
        <source>Addresses to Ask About</source>
        <translation>Direcciones por las que preguntar</translation>
    </message>
    <message numerus="yes">
        <source>%n of the addresses that are shown were turned down. Print the list, or copy it into a mail, and ask the people who know.</source>
        <translation>
            <numerusform>%n de las direcciones que se muestran fue rechazada. Imprima la lista, o cópiela en un correo, y pregunte a quienes lo saben.</numerusform>
            <numerusform>%n de las direcciones que se muestran fueron rechazadas. Imprima la lista, o cópiela en un correo, y pregunte a quienes lo saben.</numerusform>
        </translation>
    </message>
    <message>
        <source>Addresses to ask about.pdf</source>
        <translation>Direcciones por las que preguntar.pdf</translation>
    </message>
    <message>
        <source>C&amp;opy as Text</source>
        <translation>C&amp;opiar como texto</translation>
    </message>
    <message>
        <source>The list is copied. Paste it into a mail.</source>
        <translation>La lista está copiada. Péguela en un correo.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::AskList</name>
    <message>
        <source>Addresses to ask about</source>
        <translation>Direcciones por las que preguntar</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>Como está</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>Qué está mal</translation>
    </message>
    <message>
        <source>The right address</source>
        <translation>La dirección correcta</translation>
    </message>
    <message>
        <source>What is wrong: %1</source>
        <translation>Qué está mal: %1</translation>
    </message>
    <message>
        <source>The right address:</source>
        <translation>La dirección correcta:</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::BarcodeFields</name>
    <message>
        <source>Print an Intelligent &amp;Mail barcode</source>
        <translation>Imprimir un código de &amp;barras Intelligent Mail</translation>
    </message>
    <message>
        <source>6 or 9 digits, from the Postal Service</source>
        <translation>6 o 9 cifras, del servicio postal</translation>
    </message>
    <message>
        <source>3 digits: class and services</source>
        <translation>3 cifras: clase y servicios</translation>
    </message>
    <message>
        <source>Mailer &amp;identifier:</source>
        <translation>Ide&amp;ntificador del remitente:</translation>
    </message>
    <message>
        <source>Ser&amp;vice type:</source>
        <translation>Tipo de ser&amp;vicio:</translation>
    </message>
    <message>
        <source>It tells the Postal Service who mails and where to. It takes a mailer identifier, and a ZIP+4 in the address.</source>
        <translation>Dice al servicio postal quién envía y adónde. Requiere un identificador de remitente y un ZIP+4 en la dirección.</translation>
    </message>
    <message>
        <source>No barcode is printed. %1</source>
        <translation>No se imprime ningún código de barras. %1</translation>
    </message>
    <message>
        <source>No barcode is printed: with the room to be left beside it, it takes a label 3-1/4 inches (81 mm) wide.</source>
        <translation>No se imprime ningún código de barras: con el espacio que debe quedar a los lados, necesita una etiqueta de 3-1/4 pulgadas (81 mm) de ancho.</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n labels have a ZIP+4 and get a barcode.</source>
        <translation>
            <numerusform>%1 de %n etiqueta tiene ZIP+4 y lleva código de barras.</numerusform>
            <numerusform>%1 de %n etiquetas tienen ZIP+4 y llevan código de barras.</numerusform>
        </translation>
    </message>
    <message>
        <source>Next serial n&amp;umber:</source>
        <translation>Siguiente número de &amp;serie:</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::BatchFixer</name>
    <message>
        <source>Several addresses match</source>
        <translation>Coinciden varias direcciones</translation>
    </message>
    <message>
        <source>No address was checked.</source>
        <translation>No se comprobó ninguna dirección.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>%1

Take that file away or make it again with postwright-base, or name a service in the preferences.</source>
        <translation>%1

Retire ese archivo o créelo de nuevo con postwright-base, o indique un servicio en las preferencias.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::BookCounts</name>
    <message numerus="yes">
        <source>%n entries</source>
        <translation>
            <numerusform>%n entrada</numerusform>
            <numerusform>%n entradas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n entries</source>
        <translation>
            <numerusform>%1 de %n entrada</numerusform>
            <numerusform>%1 de %n entradas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>%n seleccionada</numerusform>
            <numerusform>%n seleccionadas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to check</source>
        <translation>
            <numerusform>%n por comprobar</numerusform>
            <numerusform>%n por comprobar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n con error</numerusform>
            <numerusform>%n con error</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n checked</source>
        <translation>
            <numerusform>%n comprobada</numerusform>
            <numerusform>%n comprobadas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::BookDocument</name>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
    <message numerus="yes">
        <source>Merge %n entries</source>
        <translation>
            <numerusform>Combinar %n entrada</numerusform>
            <numerusform>Combinar %n entradas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::BookFormats</name>
    <message>
        <source>The program opens: %1.</source>
        <translation>El programa abre: %1.</translation>
    </message>
    <message>
        <source>This is not a text file.</source>
        <translation>Este no es un archivo de texto.</translation>
    </message>
    <message>
        <source>This is a workbook in the form of before 2007 (.xls), one that is protected by a password, or a file of another program. Save it as .xlsx or as CSV, without a password, in the program that made it, and open that.</source>
        <translation>Este es un libro de cálculo en el formato anterior a 2007 (.xls), uno protegido con contraseña o un archivo de otro programa. Guárdelo como .xlsx o como CSV, sin contraseña, en el programa que lo creó y abra ese archivo.</translation>
    </message>
    <message>
        <source>This is a web page that is named as a workbook (.xls). Open it in a spreadsheet program, save it as .xlsx or as CSV, and open that.</source>
        <translation>Esta es una página web con nombre de libro de cálculo (.xls). Ábrala en un programa de hojas de cálculo, guárdela como .xlsx o como CSV y abra ese archivo.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::CardScanner</name>
    <message>
        <source>The vCard that begins on line %1 has no END:VCARD. The end of the file may be missing.</source>
        <translation>A la vCard que empieza en la línea %1 le falta END:VCARD. Puede que falte el final del archivo.</translation>
    </message>
    <message>
        <source>The %1 on line %2 is longer than 1 MiB. Remove it from the file, or mend it, and open the file again.</source>
        <translation>El %1 de la línea %2 pasa de 1 MiB. Quítelo del archivo o arréglelo, y vuelva a abrir el archivo.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::ChangeLabels</name>
    <message numerus="yes">
        <source>Correct %n addresses</source>
        <translation>
            <numerusform>Corregir %n dirección</numerusform>
            <numerusform>Corregir %n direcciones</numerusform>
        </translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::ColumnDialog</name>
    <message>
        <source>Columns of “%1”</source>
        <translation>Columnas de «%1»</translation>
    </message>
    <message>
        <source>Choose what each column is to the label. The choice is remembered for files with the same first line.</source>
        <translation>Elija qué es cada columna en la etiqueta. La elección se recuerda para los archivos con la misma primera línea.</translation>
    </message>
    <message>
        <source>Columns of the file</source>
        <translation>Columnas del archivo</translation>
    </message>
    <message>
        <source>&amp;Use These Columns</source>
        <translation>&amp;Usar estas columnas</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Previous row</source>
        <translation>Fila anterior</translation>
    </message>
    <message>
        <source>Next row</source>
        <translation>Fila siguiente</translation>
    </message>
    <message>
        <source>The label:</source>
        <translation>La etiqueta:</translation>
    </message>
    <message>
        <source>Not on the label</source>
        <translation>No va en la etiqueta</translation>
    </message>
    <message>
        <source>First name</source>
        <translation>Nombre de pila</translation>
    </message>
    <message>
        <source>Last or full name</source>
        <translation>Apellidos o nombre completo</translation>
    </message>
    <message>
        <source>Company</source>
        <translation>Empresa</translation>
    </message>
    <message>
        <source>Address line</source>
        <translation>Línea de dirección</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ciudad</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>ZIP code</source>
        <translation>Código ZIP</translation>
    </message>
    <message>
        <source>Line below</source>
        <translation>Línea debajo</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Columna</translation>
    </message>
    <message>
        <source>Example</source>
        <translation>Ejemplo</translation>
    </message>
    <message>
        <source>On the label</source>
        <translation>En la etiqueta</translation>
    </message>
    <message>
        <source>What “%1” is to the label</source>
        <translation>Qué es «%1» en la etiqueta</translation>
    </message>
    <message>
        <source>The file has no rows.</source>
        <translation>El archivo no tiene filas.</translation>
    </message>
    <message>
        <source>Row %1 of %2</source>
        <translation>Fila %1 de %2</translation>
    </message>
    <message>
        <source>Each row holds several addresses. Columns of &amp;address:</source>
        <translation>Cada fila contiene varias direcciones. Columnas de la &amp;dirección:</translation>
    </message>
    <message>
        <source>Title before the name</source>
        <translation>Tratamiento ante el nombre</translation>
    </message>
    <message>
        <source>Suffix after the name</source>
        <translation>Sufijo tras el nombre</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>País</translation>
    </message>
    <message>
        <source>Address %1</source>
        <translation>Dirección %1</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::CsvFile</name>
    <message>
        <source>The file is empty. A CSV file begins with a line that names its columns.</source>
        <translation>El archivo está vacío. Un archivo CSV empieza con una línea que nombra sus columnas.</translation>
    </message>
    <message>
        <source>CSV file</source>
        <translation>Archivo CSV</translation>
    </message>
    <message numerus="yes">
        <source>In %n rows a quotation mark is opened and not closed, first on line %1. Each was read to the end of its line; look at them before you print.</source>
        <translation>
            <numerusform>En %n fila, en la línea %1, se abren comillas que no se cierran. Se leyó hasta el final de su línea; revísela antes de imprimir.</numerusform>
            <numerusform>En %n filas se abren comillas que no se cierran, la primera en la línea %1. Cada una se leyó hasta el final de su línea; revíselas antes de imprimir.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::Database</name>
    <message>
        <source>The database answers: %1.</source>
        <translation>La base de datos responde: %1.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::EntryModel</name>
    <message>
        <source>Right, %1</source>
        <translation>Correcta, %1</translation>
    </message>
    <message>
        <source>Not checked</source>
        <translation>Sin comprobar</translation>
    </message>
    <message>
        <source>No address</source>
        <translation>Sin dirección</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>City and state</source>
        <translation>Ciudad y estado</translation>
    </message>
    <message>
        <source>ZIP code</source>
        <translation>Código ZIP</translation>
    </message>
    <message>
        <source>Checked</source>
        <translation>Comprobada</translation>
    </message>
    <message>
        <source>Another country</source>
        <translation>Otro país</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Checked, %1</source>
        <translation>Comprobada, %1</translation>
    </message>
    <message>
        <source>Due again, checked %1</source>
        <translation>Por repetir, comprobada %1</translation>
    </message>
    <message>
        <source>Confirmed</source>
        <translation>Confirmada</translation>
    </message>
    <message>
        <source>Confirmed but for its unit, which is missing</source>
        <translation>Confirmada salvo la unidad, que falta</translation>
    </message>
    <message>
        <source>Confirmed but for its unit, which is not known</source>
        <translation>Confirmada salvo la unidad, que no se conoce</translation>
    </message>
    <message>
        <source>The street is known, the number is not</source>
        <translation>Se conoce la calle, pero no el número</translation>
    </message>
    <message>
        <source>Form only, nobody has checked the street</source>
        <translation>Solo la forma: nadie ha comprobado la calle</translation>
    </message>
    <message>
        <source>Confirmation</source>
        <translation>Confirmación</translation>
    </message>
    <message numerus="yes">
        <source>%n at this address</source>
        <translation>
            <numerusform>%n en esta dirección</numerusform>
            <numerusform>%n en esta dirección</numerusform>
        </translation>
    </message>
    <message>
        <source>Same address</source>
        <translation>Misma dirección</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::EntryPanel</name>
    <message>
        <source>Lines of the label</source>
        <translation>Líneas de la etiqueta</translation>
    </message>
    <message>
        <source>&amp;Label</source>
        <translation>E&amp;tiqueta</translation>
    </message>
    <message>
        <source>On paper</source>
        <translation>En papel</translation>
    </message>
    <message>
        <source>Name
Street
City, state and ZIP code</source>
        <translation>Nombre
Calle
Ciudad, estado y código ZIP</translation>
    </message>
    <message>
        <source>No entry is selected.</source>
        <translation>No hay ninguna entrada seleccionada.</translation>
    </message>
    <message numerus="yes">
        <source>%n entries are selected.</source>
        <translation>
            <numerusform>%n entrada seleccionada.</numerusform>
            <numerusform>%n entradas seleccionadas.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::EntryTable</name>
    <message>
        <source>Entries</source>
        <translation>Entradas</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::FileController</name>
    <message>
        <source>No recent files</source>
        <translation>No hay archivos recientes</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Vaciar la lista</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>¿Guardar los cambios de «%1»?</translation>
    </message>
    <message>
        <source>If you do not save them, they are lost.</source>
        <translation>Si no los guarda, se pierden.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Guardar</translation>
    </message>
    <message>
        <source>&amp;Discard Changes</source>
        <translation>&amp;Descartar los cambios</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Open an address book</source>
        <translation>Abrir una libreta de direcciones</translation>
    </message>
    <message>
        <source>“%1” cannot be opened.</source>
        <translation>No se puede abrir «%1».</translation>
    </message>
    <message>
        <source>Save the address book</source>
        <translation>Guardar la libreta de direcciones</translation>
    </message>
    <message>
        <source>Address book</source>
        <translation>Libreta de direcciones</translation>
    </message>
    <message>
        <source>“%1” cannot be saved.</source>
        <translation>No se puede guardar «%1».</translation>
    </message>
    <message>
        <source>Another program has changed “%1” since it was opened here.</source>
        <translation>Otro programa ha cambiado «%1» desde que se abrió aquí.</translation>
    </message>
    <message>
        <source>If you save over it, what the other program wrote is lost. You can save under another name and compare.</source>
        <translation>Si lo sobrescribe, se pierde lo que escribió el otro programa. Puede guardarlo con otro nombre y comparar.</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Guardar &amp;como…</translation>
    </message>
    <message>
        <source>Save &amp;Over It</source>
        <translation>&amp;Sobrescribir</translation>
    </message>
    <message>
        <source>Save the labels to another kind of file?</source>
        <translation>¿Guardar las etiquetas en otro tipo de archivo?</translation>
    </message>
    <message>
        <source>“%1” may hold more than labels, such as telephone numbers. That stays in the old file, which is kept as it is; “%2” gets the labels alone.</source>
        <translation>«%1» puede contener más que etiquetas, como números de teléfono. Eso se queda en el archivo anterior, que no cambia; en «%2» van solo las etiquetas.</translation>
    </message>
    <message>
        <source>&amp;Save the Labels</source>
        <translation>&amp;Guardar las etiquetas</translation>
    </message>
    <message>
        <source>Export for spreadsheets</source>
        <translation>Exportar para hojas de cálculo</translation>
    </message>
    <message>
        <source>Exported to “%1”.</source>
        <translation>Exportado a «%1».</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Address books (%1);;All files (*)</source>
        <translation>Libretas de direcciones (%1);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>“%1” is there already.</source>
        <translation>«%1» ya existe.</translation>
    </message>
    <message>
        <source>If you replace it, what it holds is lost.</source>
        <translation>Si lo reemplaza, se pierde lo que contiene.</translation>
    </message>
    <message>
        <source>&amp;Replace It</source>
        <translation>&amp;Reemplazarlo</translation>
    </message>
    <message>
        <source>“%1” is not there any more since it was opened here.</source>
        <translation>«%1» ya no está donde se abrió.</translation>
    </message>
    <message>
        <source>It was deleted, moved or renamed. The address book is still whole in this window and can be written again.</source>
        <translation>Se eliminó, se movió o se le cambió el nombre. La libreta sigue completa en esta ventana y se puede escribir de nuevo.</translation>
    </message>
    <message>
        <source>&amp;Write It Again</source>
        <translation>&amp;Escribirlo de nuevo</translation>
    </message>
    <message>
        <source>Export for mail merge</source>
        <translation>Exportar para combinar correspondencia</translation>
    </message>
    <message numerus="yes">
        <source>%n entries exported to “%1”.</source>
        <translation>
            <numerusform>%n entrada exportada a «%1».</numerusform>
            <numerusform>%n entradas exportadas a «%1».</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::FixController</name>
    <message>
        <source>None of these entries has an address to check.</source>
        <translation>Ninguna de estas entradas tiene una dirección que comprobar.</translation>
    </message>
    <message numerus="yes">
        <source>%n addresses corrected.</source>
        <translation>
            <numerusform>%n dirección corregida.</numerusform>
            <numerusform>%n direcciones corregidas.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already right.</source>
        <translation>
            <numerusform>%n ya era correcta.</numerusform>
            <numerusform>%n ya eran correctas.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of these in the chosen form now.</source>
        <translation>
            <numerusform>%n de ellas, ahora en la forma elegida.</numerusform>
            <numerusform>%n de ellas, ahora en la forma elegida.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed.</source>
        <translation>
            <numerusform>%n con error.</numerusform>
            <numerusform>%n con error.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n well written, but not confirmed.</source>
        <translation>
            <numerusform>%n bien escrita, pero no confirmada.</numerusform>
            <numerusform>%n bien escritas, pero no confirmadas.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n checked before got no answer.</source>
        <translation>
            <numerusform>%n comprobada antes no obtuvo respuesta.</numerusform>
            <numerusform>%n comprobadas antes no obtuvieron respuesta.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::FixDialog</name>
    <message>
        <source>Fix Addresses</source>
        <translation>Corregir direcciones</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Which</source>
        <translation>Cuáles</translation>
    </message>
    <message>
        <source>&amp;All entries (%1)</source>
        <translation>&amp;Todas las entradas (%1)</translation>
    </message>
    <message>
        <source>The &amp;selected entries (%1)</source>
        <translation>Las entradas &amp;seleccionadas (%1)</translation>
    </message>
    <message>
        <source>Corrected labels</source>
        <translation>Etiquetas corregidas</translation>
    </message>
    <message>
        <source>None is skipped.</source>
        <translation>No se omite ninguna.</translation>
    </message>
    <message>
        <source>Nothing to Fix</source>
        <translation>Nada que corregir</translation>
    </message>
    <message numerus="yes">
        <source>&amp;Fix %n Addresses…</source>
        <translation>
            <numerusform>&amp;Corregir %n dirección…</numerusform>
            <numerusform>&amp;Corregir %n direcciones…</numerusform>
        </translation>
    </message>
    <message>
        <source>Ask again about those &amp;checked in the last half year</source>
        <translation>Preguntar otra vez por las comp&amp;robadas en el último medio año</translation>
    </message>
    <message numerus="yes">
        <source>%n are skipped: checked lately, or without an address.</source>
        <translation>
            <numerusform>Se omite %n: comprobada hace poco o sin dirección.</numerusform>
            <numerusform>Se omiten %n: comprobadas hace poco o sin dirección.</numerusform>
        </translation>
    </message>
    <message>
        <source>Those that failed &amp;before (%1)</source>
        <translation>Las que tuvieron &amp;error antes (%1)</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::LabelPreview</name>
    <message>
        <source>Preview of the label</source>
        <translation>Vista previa de la etiqueta</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::LabelSheet</name>
    <message>
        <source>The printer does not take the sheets. See whether it is switched on, or save them as a PDF.</source>
        <translation>La impresora no acepta las hojas. Compruebe que esté encendida o guárdelas como PDF.</translation>
    </message>
    <message>
        <source>The PDF could not be written: %1. Free some space or save under another name.</source>
        <translation>No se pudo escribir el PDF: %1. Libere espacio o guárdelo con otro nombre.</translation>
    </message>
    <message>
        <source>Address labels</source>
        <translation>Etiquetas de direcciones</translation>
    </message>
    <message>
        <source>Envelope %1: %2 x %3 in</source>
        <translation>Sobre %1: %2 x %3 pulg.</translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 x %3 %4, %n a sheet</source>
        <translation>
            <numerusform>%1: %2 x %3 %4, %n por hoja</numerusform>
            <numerusform>%1: %2 x %3 %4, %n por hoja</numerusform>
        </translation>
    </message>
    <message>
        <source>A sheet has from 1 to %1 labels.</source>
        <translation>Una hoja tiene de 1 a %1 etiquetas.</translation>
    </message>
    <message>
        <source>A label is at least 0.4 in (10 mm) wide and high.</source>
        <translation>Una etiqueta mide al menos 0.4 pulg. (10 mm) de ancho y de alto.</translation>
    </message>
    <message>
        <source>The labels overlap: from one to the next is less than a label&apos;s size.</source>
        <translation>Las etiquetas se solapan: de una a la siguiente hay menos que el tamaño de una etiqueta.</translation>
    </message>
    <message>
        <source>The labels do not fit on the paper.</source>
        <translation>Las etiquetas no caben en el papel.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::LdifFile</name>
    <message>
        <source>LDIF file</source>
        <translation>Archivo LDIF</translation>
    </message>
    <message>
        <source>The file holds no LDIF record: no line begins with “dn:”.</source>
        <translation>El archivo no contiene ningún registro LDIF: ninguna línea empieza por «dn:».</translation>
    </message>
    <message>
        <source>LDIF is read and not written. Save the address book as another kind.</source>
        <translation>LDIF se lee y no se escribe. Guarde la libreta de direcciones como otro tipo.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::LookFields</name>
    <message>
        <source>UPPER CASE, as the Postal Service prefers</source>
        <translation>MAYÚSCULAS, como prefiere el servicio postal</translation>
    </message>
    <message>
        <source>lower case</source>
        <translation>minúsculas</translation>
    </message>
    <message>
        <source>Mixed Case</source>
        <translation>Mayúsculas y minúsculas</translation>
    </message>
    <message>
        <source>&amp;Punctuation:</source>
        <translation>&amp;Puntuación:</translation>
    </message>
    <message>
        <source>Keep all of it</source>
        <translation>Conservarla toda</translation>
    </message>
    <message>
        <source>As the Postal Service prefers</source>
        <translation>Como prefiere el servicio postal</translation>
    </message>
    <message>
        <source>Remove all of it</source>
        <translation>Quitarla toda</translation>
    </message>
    <message>
        <source>&amp;Names and notes:</source>
        <translation>&amp;Nombres y notas:</translation>
    </message>
    <message>
        <source>As they were typed</source>
        <translation>Como se escribieron</translation>
    </message>
    <message>
        <source>The same letters as the address</source>
        <translation>Las mismas letras que la dirección</translation>
    </message>
    <message>
        <source>A label then reads:</source>
        <translation>Así queda una etiqueta:</translation>
    </message>
    <message>
        <source>&amp;Letters:</source>
        <translation>&amp;Letras:</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::MailCode</name>
    <message>
        <source>The service type is three digits.</source>
        <translation>El tipo de servicio son tres cifras.</translation>
    </message>
    <message>
        <source>A mailer identifier is six digits, or nine digits that begin with 9.</source>
        <translation>Un identificador de remitente son seis cifras, o nueve que empiezan por 9.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::MergeDialog</name>
    <message>
        <source>Merge Entries</source>
        <translation>Combinar entradas</translation>
    </message>
    <message numerus="yes">
        <source>One entry with this label takes the place of %n. What else the file holds of the others, such as telephone numbers, goes with them; it can be undone.</source>
        <translation>
            <numerusform>Una entrada con esta etiqueta ocupa el lugar de %n. Lo demás que el archivo guarda de las otras, como teléfonos, se va con ellas; se puede deshacer.</numerusform>
            <numerusform>Una entrada con esta etiqueta ocupa el lugar de %n. Lo demás que el archivo guarda de las otras, como teléfonos, se va con ellas; se puede deshacer.</numerusform>
        </translation>
    </message>
    <message>
        <source>Lines of the label</source>
        <translation>Líneas de la etiqueta</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>Co&amp;mbinar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::MergeFile</name>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Name %1</source>
        <translation>Nombre %1</translation>
    </message>
    <message>
        <source>Street</source>
        <translation>Calle</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Unidad</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ciudad</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>ZIP code</source>
        <translation>Código ZIP</translation>
    </message>
    <message>
        <source>Below it</source>
        <translation>Debajo</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Confirmation</source>
        <translation>Confirmación</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Motivo</translation>
    </message>
    <message>
        <source>Turned down</source>
        <translation>Rechazada</translation>
    </message>
    <message>
        <source>Not checked</source>
        <translation>Sin comprobar</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::MessageBar</name>
    <message>
        <source>Close this message</source>
        <translation>Cerrar este mensaje</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::PageButtons</name>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimir…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Guardar como P&amp;DF…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Save as a PDF file</source>
        <translation>Guardar como archivo PDF</translation>
    </message>
    <message>
        <source>PDF file (*.pdf)</source>
        <translation>Archivo PDF (*.pdf)</translation>
    </message>
    <message>
        <source>The page cannot be saved.</source>
        <translation>No se puede guardar la página.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Preferencias</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Corrected labels</source>
        <translation>Etiquetas corregidas</translation>
    </message>
    <message>
        <source>Special &amp;spellings:</source>
        <translation>Grafías &amp;especiales:</translation>
    </message>
    <message>
        <source>Words that mixed case is to write just so, with semicolons between them.</source>
        <translation>Palabras que se escriben tal cual en mayúsculas y minúsculas, separadas por punto y coma.</translation>
    </message>
    <message>
        <source>the usual one: %1</source>
        <translation>el habitual: %1</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Ventana</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Como el escritorio</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clara</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Oscura</translation>
    </message>
    <message>
        <source>&amp;Appearance:</source>
        <translation>Apa&amp;riencia:</translation>
    </message>
    <message>
        <source>This is not a host with a port, as in 127.0.0.1:8470.</source>
        <translation>Esto no es un servidor con su puerto, como 127.0.0.1:8470.</translation>
    </message>
    <message>
        <source>Who answers</source>
        <translation>Quién responde</translation>
    </message>
    <message>
        <source>none: this program answers by itself</source>
        <translation>ninguno: este programa responde por sí mismo</translation>
    </message>
    <message>
        <source>&amp;Verify service:</source>
        <translation>Servicio &amp;Verify:</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::Presort</name>
    <message>
        <source>No ZIP code</source>
        <translation>Sin código ZIP</translation>
    </message>
    <message>
        <source>Pieces by three-digit ZIP code prefix</source>
        <translation>Piezas por prefijo ZIP de tres cifras</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>Prefijo</translation>
    </message>
    <message>
        <source>Pieces</source>
        <translation>Piezas</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todas</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::PresortDialog</name>
    <message>
        <source>Presort Sheet</source>
        <translation>Hoja de preclasificación</translation>
    </message>
    <message numerus="yes">
        <source>%n pieces, by the first three digits of their ZIP codes.</source>
        <translation>
            <numerusform>%n pieza, por las tres primeras cifras de su código ZIP.</numerusform>
            <numerusform>%n piezas, por las tres primeras cifras de su código ZIP.</numerusform>
        </translation>
    </message>
    <message>
        <source>Pieces by prefix</source>
        <translation>Piezas por prefijo</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>Prefijo</translation>
    </message>
    <message>
        <source>Pieces</source>
        <translation>Piezas</translation>
    </message>
    <message>
        <source>No ZIP code</source>
        <translation>Sin código ZIP</translation>
    </message>
    <message>
        <source>Presort.pdf</source>
        <translation>Preclasificación.pdf</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::PrintController</name>
    <message>
        <source>None of the addresses that are shown was turned down.</source>
        <translation>Ninguna de las direcciones que se muestran fue rechazada.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::PrintDialog</name>
    <message>
        <source>Print Labels</source>
        <translation>Imprimir etiquetas</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimir…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Guardar como P&amp;DF…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Página anterior</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Página siguiente</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Página %1 de %2</translation>
    </message>
    <message numerus="yes">
        <source>%n labels sent to the printer.</source>
        <translation>
            <numerusform>%n etiqueta enviada a la impresora.</numerusform>
            <numerusform>%n etiquetas enviadas a la impresora.</numerusform>
        </translation>
    </message>
    <message>
        <source>Save the sheets</source>
        <translation>Guardar las hojas</translation>
    </message>
    <message>
        <source>Labels.pdf</source>
        <translation>Etiquetas.pdf</translation>
    </message>
    <message>
        <source>PDF file (*.pdf)</source>
        <translation>Archivo PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Setting the labels…</source>
        <translation>Componiendo las etiquetas…</translation>
    </message>
    <message>
        <source>The labels cannot be printed.</source>
        <translation>No se pueden imprimir las etiquetas.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message numerus="yes">
        <source>%n labels to print.</source>
        <translation>
            <numerusform>%n etiqueta por imprimir.</numerusform>
            <numerusform>%n etiquetas por imprimir.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n left out: the address was refused.</source>
        <translation>
            <numerusform>%n omitida: la dirección fue rechazada.</numerusform>
            <numerusform>%n omitidas: la dirección fue rechazada.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n left out: no address.</source>
        <translation>
            <numerusform>%n omitida: sin dirección.</numerusform>
            <numerusform>%n omitidas: sin dirección.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Print %n labels whose address was refused?</source>
        <translation>
            <numerusform>¿Imprimir %n etiqueta cuya dirección fue rechazada?</numerusform>
            <numerusform>¿Imprimir %n etiquetas cuya dirección fue rechazada?</numerusform>
        </translation>
    </message>
    <message>
        <source>The service did not find these addresses. Mail to them may come back.</source>
        <translation>El servicio no encontró estas direcciones. El correo puede volver.</translation>
    </message>
    <message>
        <source>&amp;Print Them</source>
        <translation>&amp;Imprimirlas</translation>
    </message>
    <message>
        <source>&amp;Leave Them Out</source>
        <translation>&amp;Omitirlas</translation>
    </message>
    <message>
        <source>Measuring the labels…</source>
        <translation>Midiendo las etiquetas…</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>y %n más</numerusform>
            <numerusform>y %n más</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n labels do not fit, even in 7-point type.</source>
        <translation>
            <numerusform>%n etiqueta no cabe, ni con letra de 7 puntos.</numerusform>
            <numerusform>%n etiquetas no caben, ni con letra de 7 puntos.</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose a sheet with larger labels, or shorten them in the list.</source>
        <translation>Elija una hoja con etiquetas mayores o acórtelas en la lista.</translation>
    </message>
    <message numerus="yes">
        <source>%n labels saved to “%1”.</source>
        <translation>
            <numerusform>%n etiqueta guardada en «%1».</numerusform>
            <numerusform>%n etiquetas guardadas en «%1».</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Labels</source>
        <translation>&amp;Etiquetas</translation>
    </message>
    <message>
        <source>T&amp;ype</source>
        <translation>&amp;Letra</translation>
    </message>
    <message>
        <source>Se&amp;nder</source>
        <translation>Re&amp;mitente</translation>
    </message>
    <message>
        <source>Barcod&amp;e</source>
        <translation>Códig&amp;o</translation>
    </message>
    <message>
        <source>Presort S&amp;heet…</source>
        <translation>Preclasi&amp;ficar…</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::ReadingFields</name>
    <message>
        <source>UTF-8</source>
        <translation>UTF-8</translation>
    </message>
    <message>
        <source>UTF-16</source>
        <translation>UTF-16</translation>
    </message>
    <message>
        <source>Western (Windows-1252)</source>
        <translation>Occidental (Windows-1252)</translation>
    </message>
    <message>
        <source>Mac Roman</source>
        <translation>Mac Roman</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>Coma</translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation>Punto y coma</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulador</translation>
    </message>
    <message>
        <source>Vertical bar</source>
        <translation>Barra vertical</translation>
    </message>
    <message>
        <source>Another…</source>
        <translation>Otro…</translation>
    </message>
    <message>
        <source>Another delimiter</source>
        <translation>Otro separador</translation>
    </message>
    <message>
        <source>The first row &amp;names the columns</source>
        <translation>La primera fila &amp;nombra las columnas</translation>
    </message>
    <message>
        <source>&amp;Sheet:</source>
        <translation>&amp;Hoja:</translation>
    </message>
    <message>
        <source>&amp;Encoding:</source>
        <translation>&amp;Codificación:</translation>
    </message>
    <message>
        <source>Columns are se&amp;parated by:</source>
        <translation>&amp;Separador de columnas:</translation>
    </message>
    <message>
        <source>Rows to s&amp;kip above:</source>
        <translation>&amp;Filas que omitir arriba:</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::RemoveEntries</name>
    <message numerus="yes">
        <source>Remove %n entries</source>
        <translation>
            <numerusform>Quitar %n entrada</numerusform>
            <numerusform>Quitar %n entradas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::RowEntries</name>
    <message numerus="yes">
        <source>%n labels could not be divided into the columns of the file. Each stands whole in one cell, line below line; nothing is lost.</source>
        <translation>
            <numerusform>%n etiqueta no se pudo repartir entre las columnas del archivo. Está entera en una celda, línea bajo línea; no se pierde nada.</numerusform>
            <numerusform>%n etiquetas no se pudieron repartir entre las columnas del archivo. Cada una está entera en una celda, línea bajo línea; no se pierde nada.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::SearchFields</name>
    <message>
        <source>Which entries are shown</source>
        <translation>Qué entradas se muestran</translation>
    </message>
    <message>
        <source>All entries</source>
        <translation>Todas las entradas</translation>
    </message>
    <message>
        <source>To check</source>
        <translation>Por comprobar</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Con error</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Fallida: %1</translation>
    </message>
    <message>
        <source>Several at one address</source>
        <translation>Varias en una dirección</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::SenderFields</name>
    <message>
        <source>Print a return add&amp;ress</source>
        <translation>Imprimir un &amp;remitente</translation>
    </message>
    <message>
        <source>Name
Street
City, state and ZIP code</source>
        <translation>Nombre
Calle
Ciudad, estado y código ZIP</translation>
    </message>
    <message>
        <source>none</source>
        <translation>ninguna</translation>
    </message>
    <message>
        <source>P&amp;icture beside it:</source>
        <translation>Ima&amp;gen al lado:</translation>
    </message>
    <message>
        <source>Return &amp;address:</source>
        <translation>Direcció&amp;n del remitente:</translation>
    </message>
    <message>
        <source>Choose a picture</source>
        <translation>Elegir una imagen</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.svg *.bmp)</source>
        <translation>Imágenes (*.png *.jpg *.jpeg *.svg *.bmp)</translation>
    </message>
    <message>
        <source>The picture cannot be read: %1. Choose a PNG, JPEG or SVG file.</source>
        <translation>La imagen no se puede leer: %1. Elija un archivo PNG, JPEG o SVG.</translation>
    </message>
    <message>
        <source>Labels of this sheet have no room for a return address: it takes 3 by 1-1/2 inches.</source>
        <translation>En las etiquetas de esta hoja no cabe un remitente: necesita 3 por 1-1/2 pulgadas.</translation>
    </message>
    <message>
        <source>&amp;Choose…</source>
        <translation>&amp;Buscar…</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::SheetDialog</name>
    <message>
        <source>Own Measures</source>
        <translation>Medidas propias</translation>
    </message>
    <message>
        <source>&amp;Keep This Sheet</source>
        <translation>&amp;Guardar la hoja</translation>
    </message>
    <message>
        <source>&amp;Remove It</source>
        <translation>&amp;Quitarla</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>as on the box</source>
        <translation>como en la caja</translation>
    </message>
    <message>
        <source>Letter, 8-1/2 x 11 in</source>
        <translation>Carta, 8-1/2 x 11 pulg.</translation>
    </message>
    <message>
        <source>A4, 210 x 297 mm</source>
        <translation>A4, 210 x 297 mm</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nombre:</translation>
    </message>
    <message>
        <source>&amp;Paper:</source>
        <translation>&amp;Papel:</translation>
    </message>
    <message>
        <source>Labels &amp;across:</source>
        <translation>Etiquetas a lo &amp;ancho:</translation>
    </message>
    <message>
        <source>Labels &amp;down:</source>
        <translation>Etiquetas a lo a&amp;lto:</translation>
    </message>
    <message>
        <source>&amp;Width of a label:</source>
        <translation>An&amp;cho de una etiqueta:</translation>
    </message>
    <message>
        <source>&amp;Height of a label:</source>
        <translation>Al&amp;to de una etiqueta:</translation>
    </message>
    <message>
        <source>&amp;Left margin:</source>
        <translation>Margen &amp;izquierdo:</translation>
    </message>
    <message>
        <source>&amp;Top margin:</source>
        <translation>Margen &amp;superior:</translation>
    </message>
    <message>
        <source>&amp;From one to the next, across:</source>
        <translation>&amp;De una a otra, a lo ancho:</translation>
    </message>
    <message>
        <source>From &amp;one to the next, down:</source>
        <translation>De una a &amp;otra, a lo alto:</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source> in</source>
        <translation> pulg.</translation>
    </message>
    <message>
        <source>Give the sheet a name.</source>
        <translation>Dé un nombre a la hoja.</translation>
    </message>
    <message>
        <source>A sheet “%1” is known already, with measures of its own.</source>
        <translation>Ya se conoce una hoja «%1», con sus propias medidas.</translation>
    </message>
    <message>
        <source>The labels fit on the paper.</source>
        <translation>Las etiquetas caben en el papel.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::SheetFields</name>
    <message>
        <source>All shown (%1)</source>
        <translation>Todas las mostradas (%1)</translation>
    </message>
    <message>
        <source>The selected ones (%1)</source>
        <translation>Las seleccionadas (%1)</translation>
    </message>
    <message>
        <source>In the order of &amp;ZIP codes</source>
        <translation>Por orden de códigos &amp;ZIP</translation>
    </message>
    <message>
        <source>Type the product number on the box, or choose</source>
        <translation>Escriba el número de producto de la caja, o elija</translation>
    </message>
    <message>
        <source>&amp;Own Measures…</source>
        <translation>Medidas &amp;propias…</translation>
    </message>
    <message>
        <source>&amp;Sheet:</source>
        <translation>&amp;Hoja:</translation>
    </message>
    <message>
        <source>&amp;Begin at label:</source>
        <translation>Empezar en la eti&amp;queta:</translation>
    </message>
    <message>
        <source>&amp;Copies of each:</source>
        <translation>Copias de cada &amp;una:</translation>
    </message>
    <message numerus="yes">
        <source>&amp;Also %n labels whose address was refused</source>
        <translation>
            <numerusform>&amp;También %n etiqueta cuya dirección fue rechazada</numerusform>
            <numerusform>&amp;También %n etiquetas cuya dirección fue rechazada</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Which:</source>
        <translation>&amp;Cuáles:</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::SheetView</name>
    <message>
        <source>Sheet of labels</source>
        <translation>Hoja de etiquetas</translation>
    </message>
    <message>
        <source>The first label is printed in place %1 of %2</source>
        <translation>La primera etiqueta se imprime en el lugar %1 de %2</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::SortMenu</name>
    <message>
        <source>In the Order of the &amp;File</source>
        <translation>En el orden del &amp;archivo</translation>
    </message>
    <message>
        <source>By &amp;Last Name</source>
        <translation>Por a&amp;pellido</translation>
    </message>
    <message>
        <source>By &amp;Name as Written</source>
        <translation>Por &amp;nombre tal como está escrito</translation>
    </message>
    <message>
        <source>By &amp;ZIP Code</source>
        <translation>Por código &amp;ZIP</translation>
    </message>
    <message>
        <source>&amp;Same Addresses First</source>
        <translation>Primero las &amp;mismas direcciones</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::StoreFile</name>
    <message>
        <source>This is a database, but not an address book.</source>
        <translation>Es una base de datos, pero no una libreta de direcciones.</translation>
    </message>
    <message>
        <source>The file was made by a later version of the program. Use that one, so that nothing is lost.</source>
        <translation>El archivo se hizo con una versión posterior del programa. Use esa versión para que no se pierda nada.</translation>
    </message>
    <message>
        <source>Address book</source>
        <translation>Libreta de direcciones</translation>
    </message>
    <message>
        <source>The file could not be copied: %1.</source>
        <translation>No se pudo copiar el archivo: %1.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::StreetFetch</name>
    <message>
        <source>“%1” was ended by the system.</source>
        <translation>El sistema puso fin a «%1».</translation>
    </message>
    <message>
        <source>The program “%1”, which fetches them, is not installed. Debian has it in the package postwright-verifyd.</source>
        <translation>El programa «%1», que las trae, no está instalado. Debian lo tiene en el paquete postwright-verifyd.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::StreetsController</name>
    <message>
        <source>The streets of %1 are there. Addresses are checked with them from now on.</source>
        <translation>Ya están las calles de %1. Desde ahora las direcciones se comprueban con ellas.</translation>
    </message>
    <message>
        <source>The streets of %1 are there, but a service is asked, not this program.</source>
        <translation>Ya están las calles de %1, pero se pregunta a un servicio, no a este programa.</translation>
    </message>
    <message>
        <source>Fetch Stree&amp;ts…</source>
        <translation>&amp;Traer calles…</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::StreetsDialog</name>
    <message>
        <source>How far it is</source>
        <translation>Cuánto se ha hecho</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>&amp;Detener</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Choose one</source>
        <translation>Elija uno</translation>
    </message>
    <message>
        <source>the whole state</source>
        <translation>todo el estado</translation>
    </message>
    <message>
        <source>&amp;State:</source>
        <translation>&amp;Estado:</translation>
    </message>
    <message>
        <source>&amp;County:</source>
        <translation>&amp;Condado:</translation>
    </message>
    <message>
        <source>The Census Bureau publishes a file for each county, free for any use: the streets, and which house numbers each can have, not which houses there are. They come one at a time, so a large state takes a while.</source>
        <translation>La Oficina del Censo publica un archivo por condado, libre para cualquier uso: las calles y qué números puede tener cada una, no qué casas hay. Llegan de uno en uno, así que un estado grande tarda un rato.</translation>
    </message>
    <message>
        <source>Se&amp;rver:</source>
        <translation>Se&amp;rvidor:</translation>
    </message>
    <message>
        <source>Where your company keeps a copy of these files: its address.</source>
        <translation>Si su empresa guarda una copia de estos archivos: la dirección de esta.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>county, state</comment>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <source>About %n minutes are left.</source>
        <translation>
            <numerusform>Queda cerca de %n minuto.</numerusform>
            <numerusform>Quedan unos %n minutos.</numerusform>
        </translation>
    </message>
    <message>
        <source>Fetch Streets</source>
        <translation>Traer calles</translation>
    </message>
    <message>
        <source>&amp;Fetch Streets</source>
        <translation>&amp;Traer calles</translation>
    </message>
    <message>
        <source>Asking which files there are…</source>
        <translation>Preguntando qué archivos hay…</translation>
    </message>
    <message>
        <source>%1 of %2 files fetched, %3.</source>
        <translation>%1 de %2 archivos traídos, %3.</translation>
    </message>
    <message>
        <source>Reading: %1 rows so far.</source>
        <translation>Leyendo: %1 filas hasta ahora.</translation>
    </message>
    <message>
        <source>Sorting the streets…</source>
        <translation>Ordenando las calles…</translation>
    </message>
    <message>
        <source>Stopped. What has come is kept: Fetch Streets goes on with it.</source>
        <translation>Detenido. Lo que ha llegado se conserva: Traer calles continúa con ello.</translation>
    </message>
    <message>
        <source>The streets could not be fetched. %1</source>
        <translation>No se pudieron traer las calles. %1</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::TypeFields</name>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>&amp;Typeface:</source>
        <translation>Tipo de le&amp;tra:</translation>
    </message>
    <message>
        <source>Largest si&amp;ze:</source>
        <translation>Tamaño má&amp;ximo:</translation>
    </message>
    <message>
        <source>Move &amp;right:</source>
        <translation>Mover a la derec&amp;ha:</translation>
    </message>
    <message>
        <source>Move do&amp;wn:</source>
        <translation>Mover hacia aba&amp;jo:</translation>
    </message>
    <message>
        <source>Write all labels &amp;alike</source>
        <translation>Escribir todas i&amp;gual</translation>
    </message>
    <message>
        <source>The entries stay as they are; labels of other countries do so here, too</source>
        <translation>Las entradas quedan como están; las etiquetas de otros países, aquí también</translation>
    </message>
    <message>
        <source>UPPER CASE</source>
        <translation>MAYÚSCULAS</translation>
    </message>
    <message>
        <source>lower case</source>
        <translation>minúsculas</translation>
    </message>
    <message>
        <source>Mixed Case</source>
        <translation>Mayúsculas y minúsculas</translation>
    </message>
    <message>
        <source>All of it</source>
        <translation>Toda</translation>
    </message>
    <message>
        <source>As the Postal Service prefers</source>
        <translation>Como prefiere el servicio postal</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguna</translation>
    </message>
    <message>
        <source>P&amp;unctuation:</source>
        <translation>P&amp;untuación:</translation>
    </message>
    <message>
        <source> in</source>
        <translation> pulg.</translation>
    </message>
    <message>
        <source>For a printer that does not feed the sheets quite straight</source>
        <translation>Para una impresora que no toma las hojas bien rectas</translation>
    </message>
    <message>
        <source>Print the ed&amp;ges, for a trial on plain paper</source>
        <translation>Imprimir los &amp;bordes, para probar en papel normal</translation>
    </message>
    <message>
        <source>Letter&amp;s:</source>
        <translation>Let&amp;ras:</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::VCardFile</name>
    <message>
        <source>The file holds no vCard: no line reads BEGIN:VCARD.</source>
        <translation>El archivo no contiene ninguna vCard: ninguna línea dice BEGIN:VCARD.</translation>
    </message>
    <message>
        <source>vCard file</source>
        <translation>Archivo vCard</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Casa</translation>
    </message>
    <message>
        <source>Work</source>
        <translation>Trabajo</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::WhoAnswers</name>
    <message>
        <source>%1 is asked.</source>
        <translation>Se pregunta a %1.</translation>
    </message>
    <message>
        <source>%1 is asked, as the program was started so.</source>
        <translation>Se pregunta a %1, porque así se inició el programa.</translation>
    </message>
    <message>
        <source>This program would answer by itself, but: %1</source>
        <translation>Este programa respondería por sí mismo, pero: %1</translation>
    </message>
    <message>
        <source>This program answers by itself, from its list of ZIP codes only.</source>
        <translation>Este programa responde por sí mismo, solo con su lista de códigos postales.</translation>
    </message>
    <message>
        <source>This program answers by itself, with the streets of %1.</source>
        <translation>Este programa responde por sí mismo, con las calles de %1.</translation>
    </message>
    <message>
        <source>ZIP codes only: streets are not checked. Those of a state or county can be fetched.</source>
        <translation>Solo códigos postales: no se comprueban las calles. Se pueden traer las de un estado o condado.</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::WindowActions</name>
    <message>
        <source>&amp;New Address Book</source>
        <translation>&amp;Nueva libreta de direcciones</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Abrir…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Guardar</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Guardar &amp;como…</translation>
    </message>
    <message>
        <source>&amp;Columns…</source>
        <translation>Colu&amp;mnas…</translation>
    </message>
    <message>
        <source>Choose which columns of the file make the label</source>
        <translation>Elegir qué columnas del archivo forman la etiqueta</translation>
    </message>
    <message>
        <source>&amp;Export for Spreadsheets…</source>
        <translation>&amp;Exportar para hojas de cálculo…</translation>
    </message>
    <message>
        <source>Write a CSV copy in which no cell is run as a formula: those that begin with = + - or @ get an apostrophe in front</source>
        <translation>Escribir una copia CSV en la que ninguna celda se ejecute como fórmula: las que empiezan con = + - o @ llevan un apóstrofo delante</translation>
    </message>
    <message>
        <source>&amp;Print Labels…</source>
        <translation>&amp;Imprimir etiquetas…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Abrir &amp;reciente</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>&amp;Add Entry</source>
        <translation>&amp;Añadir entrada</translation>
    </message>
    <message>
        <source>E&amp;dit Label</source>
        <translation>Editar e&amp;tiqueta</translation>
    </message>
    <message>
        <source>Re&amp;move Entries</source>
        <translation>&amp;Quitar entradas</translation>
    </message>
    <message>
        <source>Select A&amp;ll</source>
        <translation>Seleccionar t&amp;odo</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Buscar</translation>
    </message>
    <message>
        <source>&amp;Show All Entries</source>
        <translation>&amp;Mostrar todas las entradas</translation>
    </message>
    <message>
        <source>&amp;Preferences…</source>
        <translation>&amp;Preferencias…</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>&amp;Fix Addresses…</source>
        <translation>&amp;Corregir direcciones…</translation>
    </message>
    <message>
        <source>Fix &amp;Selected Addresses…</source>
        <translation>Corregir las direcciones &amp;seleccionadas…</translation>
    </message>
    <message>
        <source>&amp;Try Failed Addresses Again…</source>
        <translation>&amp;Reintentar las que tienen error…</translation>
    </message>
    <message>
        <source>&amp;Addresses</source>
        <translation>&amp;Direcciones</translation>
    </message>
    <message>
        <source>&amp;About Address Book</source>
        <translation>&amp;Acerca de Libreta de direcciones</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Herramientas</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Fix Addresses</source>
        <translation>Corregir direcciones</translation>
    </message>
    <message>
        <source>Print Labels</source>
        <translation>Imprimir etiquetas</translation>
    </message>
    <message>
        <source>Export for &amp;Mail Merge…</source>
        <translation>Exportar para combinar corres&amp;pondencia…</translation>
    </message>
    <message>
        <source>Write the entries that are shown as a CSV file with name, street, unit, city, state, ZIP code and confirmation in columns of their own</source>
        <translation>Escribir las entradas que se muestran en un archivo CSV con nombre, calle, unidad, ciudad, estado, código ZIP y confirmación en columnas propias</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>Addresses to As&amp;k About…</source>
        <translation>&amp;Direcciones por las que preguntar…</translation>
    </message>
    <message>
        <source>Print, save or copy a list of the addresses that are shown and were turned down</source>
        <translation>Imprimir, guardar o copiar una lista de las direcciones que se muestran y fueron rechazadas</translation>
    </message>
    <message>
        <source>Mer&amp;ge Entries…</source>
        <translation>Comb&amp;inar entradas…</translation>
    </message>
    <message>
        <source>Make one entry of the selected ones, which have the same address</source>
        <translation>Hacer una sola entrada de las seleccionadas, que tienen la misma dirección</translation>
    </message>
    <message>
        <source>Fetch the streets of a state or county, by which addresses are then checked</source>
        <translation>Trae las calles de un estado o condado, con las que luego se comprueban las direcciones</translation>
    </message>
    <message>
        <source>Fetch Stree&amp;ts…</source>
        <translation>&amp;Traer calles…</translation>
    </message>
</context>
<context>
    <name>postwright::addressbook::WorkbookFile</name>
    <message>
        <source>The workbook is larger than 128 MiB. Save the sheet as CSV, and open that.</source>
        <translation>El libro de cálculo ocupa más de 128 MiB. Guarde la hoja como CSV y abra ese archivo.</translation>
    </message>
    <message>
        <source>Excel workbook</source>
        <translation>Libro de Excel</translation>
    </message>
    <message>
        <source>OpenDocument spreadsheet</source>
        <translation>Hoja de cálculo OpenDocument</translation>
    </message>
    <message>
        <source>The sheet has no more rows than are skipped.</source>
        <translation>La hoja no tiene más filas que las que se omiten.</translation>
    </message>
</context>
<context>
    <name>postwright::tables::ColumnNames</name>
    <message>
        <source>Home</source>
        <translation>Casa</translation>
    </message>
    <message>
        <source>Work</source>
        <translation>Trabajo</translation>
    </message>
    <message>
        <source>Business</source>
        <translation>Empresa</translation>
    </message>
    <message>
        <source>Mailing</source>
        <translation>Envío postal</translation>
    </message>
    <message>
        <source>Shipping</source>
        <translation>Entrega</translation>
    </message>
    <message>
        <source>Billing</source>
        <translation>Facturación</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Otra</translation>
    </message>
    <message>
        <source>Primary</source>
        <translation>Principal</translation>
    </message>
    <message>
        <source>Secondary</source>
        <translation>Secundaria</translation>
    </message>
    <message>
        <source>Permanent</source>
        <translation>Permanente</translation>
    </message>
    <message>
        <source>Physical</source>
        <translation>Física</translation>
    </message>
    <message>
        <source>Alternate</source>
        <translation>Alternativa</translation>
    </message>
    <message>
        <source>Seasonal</source>
        <translation>De temporada</translation>
    </message>
    <message>
        <source>Delivery</source>
        <translation>Reparto</translation>
    </message>
    <message>
        <source>Postal</source>
        <translation>Postal</translation>
    </message>
</context>
<context>
    <name>postwright::tables::CsvReader</name>
    <message>
        <source>The row that begins on line %1 holds a cell of more than 1 MiB. Perhaps a quotation mark is missing there.</source>
        <translation>La fila que empieza en la línea %1 tiene una celda de más de 1 MiB. Puede que falte una comilla.</translation>
    </message>
</context>
<context>
    <name>postwright::tables::ReplacementFile</name>
    <message>
        <source>The file could not be written: %1. What was there before is unchanged; free some space or save under another name.</source>
        <translation>No se pudo escribir el archivo: %1. Lo que había antes sigue igual; libere espacio o guárdelo con otro nombre.</translation>
    </message>
    <message>
        <source>The file is write-protected. Save under another name, or lift the protection in its properties and save again.</source>
        <translation>El archivo está protegido contra escritura. Guarde con otro nombre, o quite la protección en sus propiedades y vuelva a guardar.</translation>
    </message>
</context>
<context>
    <name>postwright::tables::TextFile</name>
    <message>
        <source>This is a folder or a device, not a file.</source>
        <translation>Es una carpeta o un dispositivo, no un archivo.</translation>
    </message>
    <message>
        <source>The file is larger than 512 MiB. Split it into smaller ones.</source>
        <translation>El archivo pasa de 512 MiB. Divídalo en otros más pequeños.</translation>
    </message>
    <message>
        <source>The file cannot be read: %1.</source>
        <translation>No se puede leer el archivo: %1.</translation>
    </message>
    <message>
        <source>Line %1 holds a NUL byte, so this is not a text file.</source>
        <translation>La línea %1 contiene un byte nulo, así que no es un archivo de texto.</translation>
    </message>
    <message>
        <source>The file is not valid UTF-16, perhaps because its end is missing. Save it again in the program that made it.</source>
        <translation>El archivo no es UTF-16 válido, quizá porque le falta el final. Guárdelo de nuevo en el programa que lo hizo.</translation>
    </message>
    <message>
        <source>The file is not valid UTF-8.</source>
        <translation>El archivo no es UTF-8 válido.</translation>
    </message>
    <message>
        <source>The file is UTF-8 now: %1, which it was before, has no code for one of its characters.</source>
        <translation>El archivo es ahora UTF-8: %1, lo que era antes, no tiene código para uno de sus caracteres.</translation>
    </message>
</context>
<context>
    <name>postwright::workbook::Workbook</name>
    <message>
        <source>This is an archive, not a workbook that can be read. Save it as .xlsx or as CSV in the program that made it, and open that.</source>
        <translation>Este es un archivo comprimido y no un libro de cálculo que se pueda leer. Guárdelo como .xlsx o como CSV en el programa que lo creó y abra ese archivo.</translation>
    </message>
    <message>
        <source>The sheet cannot be changed so that it reads as it should. Save the address book as CSV; the workbook stays as it is.</source>
        <translation>La hoja no se puede cambiar de modo que se lea como debe. Guarde la libreta de direcciones como CSV; el libro de cálculo queda como está.</translation>
    </message>
    <message>
        <source>Cell %1%2 holds a formula, a date or an amount, which is never written over. Put its text in the cell with a spreadsheet program, or save the address book as CSV.</source>
        <translation>La celda %1%2 contiene una fórmula, una fecha o un importe, que nunca se sobrescribe. Ponga su texto en la celda con un programa de hojas de cálculo o guarde la libreta de direcciones como CSV.</translation>
    </message>
    <message>
        <source>The sheet has more than four million cells, or more rows or columns than a spreadsheet can hold. Save what you need of it as CSV, and open that.</source>
        <translation>La hoja tiene más de cuatro millones de celdas, o más filas o columnas de las que caben en una hoja de cálculo. Guarde como CSV lo que necesite y abra ese archivo.</translation>
    </message>
    <message>
        <source>The workbook is damaged: a part that it names is missing or does not fit the others. Open it in the program that made it and save it again.</source>
        <translation>El libro de cálculo está dañado: falta una parte que nombra, o no encaja con las demás. Ábralo en el programa que lo creó y guárdelo de nuevo.</translation>
    </message>
</context>
<context>
    <name>postwright::workbook::XmlText</name>
    <message>
        <source>The file is damaged: a part of it is not XML that can be read. Open it in the program that made it and save it again.</source>
        <translation>El archivo está dañado: una de sus partes no es XML que se pueda leer. Ábralo en el programa que lo creó y guárdelo de nuevo.</translation>
    </message>
    <message>
        <source>The sheet has too many cells to be edited here. Save it as CSV, and open that.</source>
        <translation>La hoja tiene demasiadas celdas para editarla aquí. Guárdela como CSV y abra ese archivo.</translation>
    </message>
</context>
<context>
    <name>postwright::workbook::ZipParts</name>
    <message>
        <source>The file is damaged, or protected by a password (%1). Open it in the program that made it and save it again.</source>
        <translation>El archivo está dañado o protegido con contraseña (%1). Ábralo en el programa que lo creó y guárdelo de nuevo.</translation>
    </message>
    <message>
        <source>A part of the file is larger than 256 MiB. Save the sheet as CSV, and open that.</source>
        <translation>Una parte del archivo ocupa más de 256 MiB. Guarde la hoja como CSV y abra ese archivo.</translation>
    </message>
</context>
</TS>
