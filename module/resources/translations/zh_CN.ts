<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>IDD_CREATECELLSTYLE_DIALOG</name>
    <message>
        <source>New Cell Style</source>
        <translation>新建单元样式</translation>
    </message>
    <message>
        <source>&amp;New style name:</source>
        <translation>新样式名(&amp;N)：</translation>
    </message>
    <message>
        <source>Name of the new cell style</source>
        <translation>新单元样式的名称</translation>
    </message>
    <message>
        <source>&amp;Start with:</source>
        <translation>基础样式(&amp;S)：</translation>
    </message>
    <message>
        <source>Cell style to start with</source>
        <translation>作为基础的单元样式</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
</context>
<context>
    <name>IDD_CREATETABLESTYLE_DIALOG</name>
    <message>
        <source>New Table Style</source>
        <translation>新建表格样式</translation>
    </message>
    <message>
        <source>&amp;New style name:</source>
        <translation>新样式名(&amp;N)：</translation>
    </message>
    <message>
        <source>Name of the new table style</source>
        <translation>新表格样式的名称</translation>
    </message>
    <message>
        <source>&amp;Start with:</source>
        <translation>基础样式(&amp;S)：</translation>
    </message>
    <message>
        <source>Table style to start with</source>
        <translation>作为基础的表格样式</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
</context>
</TS>
