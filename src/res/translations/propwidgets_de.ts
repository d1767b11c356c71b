<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>PropUiAccessibility</name>
    <message>
        <source>read-only</source>
        <translation>schreibgeschützt</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>accessible name of a button in a row: the item&apos;s caption, then the button&apos;s text</comment>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>PropUiAccessibleCheckBox</name>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>partly on</source>
        <translation>teilweise ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
</context>
<context>
    <name>PropUiActionsContextMenu</name>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>Action %1</source>
        <translation>Aktion %1</translation>
    </message>
</context>
<context>
    <name>PropUiQDateCtrl</name>
    <message>
        <source>&quot;%1&quot; is not a date. Type a date as %2 or as yyyy-MM-dd.</source>
        <translation>„%1“ ist kein Datum. Geben Sie ein Datum als %2 oder als yyyy-MM-dd ein.</translation>
    </message>
</context>
<context>
    <name>PropUiQScale2d</name>
    <message>
        <source>Edit scale non-uniformly</source>
        <translation>Maßstab ungleichmäßig bearbeiten</translation>
    </message>
    <message>
        <source>%1: edit scale non-uniformly</source>
        <translation>%1: Maßstab ungleichmäßig bearbeiten</translation>
    </message>
</context>
<context>
    <name>PropUiTexts</name>
    <message>
        <source>*varies*</source>
        <translation>*variiert*</translation>
    </message>
</context>
<context>
    <name>PropUiTypedNumber</name>
    <message>
        <source>Enter a whole number from %1 to %2, or an expression such as 10*2.</source>
        <translation>Geben Sie eine ganze Zahl von %1 bis %2 oder einen Ausdruck wie 10*2 ein.</translation>
    </message>
    <message>
        <source>Enter a number or an expression such as 10*2.</source>
        <translation>Geben Sie eine Zahl oder einen Ausdruck wie 10*2 ein.</translation>
    </message>
</context>
<context>
    <name>PropertyBagModel</name>
    <message>
        <source>*VARIES*</source>
        <translation>*VARIIERT*</translation>
    </message>
</context>
</TS>
