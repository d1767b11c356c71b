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
    <name>PropertyBagModel</name>
    <message>
        <source>*VARIES*</source>
        <translation>*VARIIERT*</translation>
    </message>
</context>
</TS>
