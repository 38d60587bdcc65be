<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>IDD_CELLBORDERPROP_DIALOG</name>
    <message>
        <source>Cell Borders</source>
        <translation>单元边框</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>特性</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>&amp;Line weight:</source>
        <translation>线宽(&amp;L):</translation>
    </message>
    <message>
        <source>Line weight</source>
        <translation>线宽</translation>
    </message>
    <message>
        <source>Line t&amp;ype:</source>
        <translation>线型(&amp;Y):</translation>
    </message>
    <message>
        <source>Line type</source>
        <translation>线型</translation>
    </message>
    <message>
        <source>Colo&amp;r:</source>
        <translation>颜色(&amp;R):</translation>
    </message>
    <message>
        <source>Border color</source>
        <translation>边框颜色</translation>
    </message>
    <message>
        <source>Double line</source>
        <translation>双线</translation>
    </message>
    <message>
        <source>Do&amp;uble line</source>
        <translation>双线(&amp;U)</translation>
    </message>
    <message>
        <source>S&amp;pacing:</source>
        <translation>间距(&amp;P):</translation>
    </message>
    <message>
        <source>Spacing of the double line</source>
        <translation>双线的间距</translation>
    </message>
    <message>
        <source>Preview of the selected cells</source>
        <translation>所选单元的预览</translation>
    </message>
    <message>
        <source>&amp;Apply to:</source>
        <translation>应用到(&amp;A):</translation>
    </message>
    <message>
        <source>All borders</source>
        <translation>所有边框</translation>
    </message>
    <message>
        <source>Outside borders</source>
        <translation>外边框</translation>
    </message>
    <message>
        <source>Inside borders</source>
        <translation>内边框</translation>
    </message>
    <message>
        <source>Bottom borders</source>
        <translation>底部边框</translation>
    </message>
    <message>
        <source>Left borders</source>
        <translation>左边框</translation>
    </message>
    <message>
        <source>Top borders</source>
        <translation>上边框</translation>
    </message>
    <message>
        <source>Right borders</source>
        <translation>右边框</translation>
    </message>
    <message>
        <source>Horizontal inside borders</source>
        <translation>内部横边框</translation>
    </message>
    <message>
        <source>Vertical inside borders</source>
        <translation>内部竖边框</translation>
    </message>
    <message>
        <source>No borders</source>
        <translation>无边框</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>IDD_CELLINSERTBLOCK_DIALOG</name>
    <message>
        <source>Insert a Block in a Table Cell</source>
        <translation>在单元中插入块</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>名称(&amp;N):</translation>
    </message>
    <message>
        <source>Name of the block</source>
        <translation>块名称</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>浏览(&amp;B)...</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>文件:</translation>
    </message>
    <message>
        <source>&amp;Scale:</source>
        <translation>比例(&amp;S):</translation>
    </message>
    <message>
        <source>Scale of the block</source>
        <translation>块的比例</translation>
    </message>
    <message>
        <source>Auto&amp;fit</source>
        <translation>自动调整(&amp;F)</translation>
    </message>
    <message>
        <source>Fit the block to the cell</source>
        <translation>使块适合单元</translation>
    </message>
    <message>
        <source>&amp;Rotation:</source>
        <translation>旋转角度(&amp;R):</translation>
    </message>
    <message>
        <source>Rotation of the block</source>
        <translation>块的旋转角度</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>对齐(&amp;A):</translation>
    </message>
    <message>
        <source>Alignment of the block in the cell</source>
        <translation>块在单元中的对齐方式</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>IDD_CELLSTYLEBORDER_DIALOG</name>
    <message>
        <source>Properties</source>
        <translation>特性</translation>
    </message>
    <message>
        <source>&amp;Line weight:</source>
        <translation>线宽(&amp;L):</translation>
    </message>
    <message>
        <source>Line weight</source>
        <translation>线宽</translation>
    </message>
    <message>
        <source>Line t&amp;ype:</source>
        <translation>线型(&amp;Y):</translation>
    </message>
    <message>
        <source>Line type</source>
        <translation>线型</translation>
    </message>
    <message>
        <source>Colo&amp;r:</source>
        <translation>颜色(&amp;R):</translation>
    </message>
    <message>
        <source>Border color</source>
        <translation>边框颜色</translation>
    </message>
    <message>
        <source>Double line</source>
        <translation>双线</translation>
    </message>
    <message>
        <source>Do&amp;uble line</source>
        <translation>双线(&amp;U)</translation>
    </message>
    <message>
        <source>S&amp;pacing:</source>
        <translation>间距(&amp;P):</translation>
    </message>
    <message>
        <source>Spacing of the double line</source>
        <translation>双线的间距</translation>
    </message>
    <message>
        <source>&amp;Apply to:</source>
        <translation>应用到(&amp;A):</translation>
    </message>
    <message>
        <source>All borders</source>
        <translation>所有边框</translation>
    </message>
    <message>
        <source>Outside borders</source>
        <translation>外边框</translation>
    </message>
    <message>
        <source>Inside borders</source>
        <translation>内边框</translation>
    </message>
    <message>
        <source>Bottom borders</source>
        <translation>底部边框</translation>
    </message>
    <message>
        <source>Left borders</source>
        <translation>左边框</translation>
    </message>
    <message>
        <source>Top borders</source>
        <translation>上边框</translation>
    </message>
    <message>
        <source>Right borders</source>
        <translation>右边框</translation>
    </message>
    <message>
        <source>No borders</source>
        <translation>无边框</translation>
    </message>
</context>
<context>
    <name>IDD_CELLSTYLEGENERAL_DIALOG</name>
    <message>
        <source>Properties</source>
        <translation>特性</translation>
    </message>
    <message>
        <source>&amp;Fill color:</source>
        <translation>填充颜色(&amp;F):</translation>
    </message>
    <message>
        <source>Fill color</source>
        <translation>填充颜色</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>对齐(&amp;A):</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>对齐</translation>
    </message>
    <message>
        <source>T&amp;ype:</source>
        <translation>类型(&amp;Y):</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>格式:</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>F&amp;ormat...</source>
        <translation>格式(&amp;O)...</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>边距</translation>
    </message>
    <message>
        <source>Hori&amp;zontal:</source>
        <translation>水平(&amp;Z):</translation>
    </message>
    <message>
        <source>Horizontal margin</source>
        <translation>水平边距</translation>
    </message>
    <message>
        <source>&amp;Vertical:</source>
        <translation>垂直(&amp;V):</translation>
    </message>
    <message>
        <source>Vertical margin</source>
        <translation>垂直边距</translation>
    </message>
    <message>
        <source>Merge cells</source>
        <translation>合并单元</translation>
    </message>
    <message>
        <source>&amp;Merge cells</source>
        <translation>合并单元(&amp;M)</translation>
    </message>
</context>
<context>
    <name>IDD_CELLSTYLETEXT_DIALOG</name>
    <message>
        <source>Properties</source>
        <translation>特性</translation>
    </message>
    <message>
        <source>Text &amp;style:</source>
        <translation>文字样式(&amp;S):</translation>
    </message>
    <message>
        <source>Text style</source>
        <translation>文字样式</translation>
    </message>
    <message>
        <source>Edit text styles</source>
        <translation>编辑文字样式</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>编辑(&amp;E)...</translation>
    </message>
    <message>
        <source>Text he&amp;ight:</source>
        <translation>文字高度(&amp;I):</translation>
    </message>
    <message>
        <source>Text height</source>
        <translation>文字高度</translation>
    </message>
    <message>
        <source>Text colo&amp;r:</source>
        <translation>文字颜色(&amp;R):</translation>
    </message>
    <message>
        <source>Text color</source>
        <translation>文字颜色</translation>
    </message>
    <message>
        <source>Text &amp;angle:</source>
        <translation>文字角度(&amp;A):</translation>
    </message>
    <message>
        <source>Text angle</source>
        <translation>文字角度</translation>
    </message>
</context>
<context>
    <name>IDD_CREATECELLSTYLE_DIALOG</name>
    <message>
        <source>New Cell Style</source>
        <translation>新建单元样式</translation>
    </message>
    <message>
        <source>&amp;New style name:</source>
        <translation>新样式名(&amp;N):</translation>
    </message>
    <message>
        <source>Name of the new cell style</source>
        <translation>新单元样式的名称</translation>
    </message>
    <message>
        <source>&amp;Start with:</source>
        <translation>基础样式(&amp;S):</translation>
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
        <translation>新样式名(&amp;N):</translation>
    </message>
    <message>
        <source>Name of the new table style</source>
        <translation>新表格样式的名称</translation>
    </message>
    <message>
        <source>&amp;Start with:</source>
        <translation>基础样式(&amp;S):</translation>
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
<context>
    <name>IDD_EXLIMPORT</name>
    <message>
        <source>Import Table from File</source>
        <translation>从文件导入表格</translation>
    </message>
    <message>
        <source>File to import (CSV)</source>
        <translation>要导入的文件 (CSV)</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>文件(&amp;F):</translation>
    </message>
    <message>
        <source>Path of the file</source>
        <translation>文件路径</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>浏览(&amp;B)...</translation>
    </message>
    <message>
        <source>&amp;Sheet:</source>
        <translation>工作表(&amp;S):</translation>
    </message>
    <message>
        <source>Sheet of the file</source>
        <translation>文件中的工作表</translation>
    </message>
    <message>
        <source>Show &amp;preview</source>
        <translation>显示预览(&amp;P)</translation>
    </message>
    <message>
        <source>Show preview</source>
        <translation>显示预览</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Preview of the table</source>
        <translation>表格预览</translation>
    </message>
    <message>
        <source>No preview</source>
        <translation>无预览</translation>
    </message>
    <message>
        <source>Progress of reading</source>
        <translation>读取进度</translation>
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
    <name>IDD_MANAGERCELLSTYLE_DIALOG</name>
    <message>
        <source>Manage Cell Styles</source>
        <translation>管理单元样式</translation>
    </message>
    <message>
        <source>&amp;Cell styles:</source>
        <translation>单元样式(&amp;C):</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>预览:</translation>
    </message>
    <message>
        <source>Cell styles</source>
        <translation>单元样式</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>新建(&amp;N)...</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>重命名(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>Preview of the selected cell style</source>
        <translation>所选单元样式的预览</translation>
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
    <name>IDD_TABLEINSERT_DIALOG</name>
    <message>
        <source>The data of a file</source>
        <translation>文件中的数据</translation>
    </message>
    <message>
        <source>Fixed number of columns</source>
        <translation>固定列数</translation>
    </message>
    <message>
        <source>Fixed column width</source>
        <translation>固定列宽</translation>
    </message>
    <message>
        <source>Fixed number of data rows</source>
        <translation>固定数据行数</translation>
    </message>
    <message>
        <source>Fixed row height</source>
        <translation>固定行高</translation>
    </message>
    <message>
        <source>Insert Table</source>
        <translation>插入表格</translation>
    </message>
    <message>
        <source>Table &amp;style</source>
        <translation>表格样式(&amp;S)</translation>
    </message>
    <message>
        <source>Table style</source>
        <translation>表格样式</translation>
    </message>
    <message>
        <source>Table styles</source>
        <translation>表格样式</translation>
    </message>
    <message>
        <source>Begin with</source>
        <translation>起始内容</translation>
    </message>
    <message>
        <source>An &amp;empty table</source>
        <translation>空表格(&amp;E)</translation>
    </message>
    <message>
        <source>File of the table</source>
        <translation>表格的文件</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>选择文件</translation>
    </message>
    <message>
        <source>Data e&amp;xtraction</source>
        <translation>数据提取(&amp;X)</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Preview of the table</source>
        <translation>表格的预览</translation>
    </message>
    <message>
        <source>There is no preview of this table.</source>
        <translation>此表格没有预览。</translation>
    </message>
    <message>
        <source>No preview</source>
        <translation>无预览</translation>
    </message>
    <message>
        <source>Place by</source>
        <translation>插入方式</translation>
    </message>
    <message>
        <source>An insertion &amp;point</source>
        <translation>指定插入点(&amp;P)</translation>
    </message>
    <message>
        <source>A &amp;window</source>
        <translation>指定窗口(&amp;W)</translation>
    </message>
    <message>
        <source>Number of columns</source>
        <translation>列数</translation>
    </message>
    <message>
        <source>Column width</source>
        <translation>列宽</translation>
    </message>
    <message>
        <source>Number of data rows</source>
        <translation>数据行数</translation>
    </message>
    <message>
        <source>Row height in lines of text</source>
        <translation>以文字行数表示的行高</translation>
    </message>
    <message>
        <source>line(s)</source>
        <translation>行文字</translation>
    </message>
    <message>
        <source>Cell styles</source>
        <translation>单元样式</translation>
    </message>
    <message>
        <source>&amp;First row:</source>
        <translation>第一行(&amp;F):</translation>
    </message>
    <message>
        <source>Cell style of the first row</source>
        <translation>第一行的单元样式</translation>
    </message>
    <message>
        <source>Seco&amp;nd row:</source>
        <translation>第二行(&amp;N):</translation>
    </message>
    <message>
        <source>Cell style of the second row</source>
        <translation>第二行的单元样式</translation>
    </message>
    <message>
        <source>&amp;All other rows:</source>
        <translation>所有其他行(&amp;A):</translation>
    </message>
    <message>
        <source>Cell style of all other rows</source>
        <translation>所有其他行的单元样式</translation>
    </message>
    <message>
        <source>Taken over from the table of the style</source>
        <translation>从样式的表格中取用</translation>
    </message>
    <message>
        <source>La&amp;bel cell texts</source>
        <translation>标签单元的文字(&amp;B)</translation>
    </message>
    <message>
        <source>Da&amp;ta cell texts</source>
        <translation>数据单元的文字(&amp;T)</translation>
    </message>
    <message>
        <source>Data lin&amp;ks</source>
        <translation>数据链接(&amp;K)</translation>
    </message>
    <message>
        <source>F&amp;ields</source>
        <translation>字段(&amp;I)</translation>
    </message>
    <message>
        <source>Bl&amp;ocks</source>
        <translation>块(&amp;O)</translation>
    </message>
    <message>
        <source>For&amp;mulas</source>
        <translation>公式(&amp;M)</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>特性</translation>
    </message>
    <message>
        <source>Propert&amp;y overrides of cells</source>
        <translation>单元特性替代(&amp;Y)</translation>
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
    <name>IDD_TABLESTYLEEDIT_DIALOG</name>
    <message>
        <source>Table Style</source>
        <translation>表格样式</translation>
    </message>
    <message>
        <source>Start table</source>
        <translation>起始表格</translation>
    </message>
    <message>
        <source>Select a table to start from:</source>
        <translation>选择起始表格:</translation>
    </message>
    <message>
        <source>Select a table to start from</source>
        <translation>选择起始表格</translation>
    </message>
    <message>
        <source>Remove the start table</source>
        <translation>删除起始表格</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>表格</translation>
    </message>
    <message>
        <source>Table &amp;direction:</source>
        <translation>表格方向(&amp;D):</translation>
    </message>
    <message>
        <source>Direction of the table</source>
        <translation>表格方向</translation>
    </message>
    <message>
        <source>Preview of the table</source>
        <translation>表格预览</translation>
    </message>
    <message>
        <source>&amp;Cell style:</source>
        <translation>单元样式(&amp;C):</translation>
    </message>
    <message>
        <source>Cell style</source>
        <translation>单元样式</translation>
    </message>
    <message>
        <source>Create a cell style</source>
        <translation>创建单元样式</translation>
    </message>
    <message>
        <source>Manage cell styles</source>
        <translation>管理单元样式</translation>
    </message>
    <message>
        <source>Properties of the cell style</source>
        <translation>单元样式的特性</translation>
    </message>
    <message>
        <source>Preview of the cell style</source>
        <translation>单元样式预览</translation>
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
    <name>IDD_TABLESTYLE_DIALOG</name>
    <message>
        <source>Table Styles</source>
        <translation>表格样式</translation>
    </message>
    <message>
        <source>&amp;Styles:</source>
        <translation>样式(&amp;S):</translation>
    </message>
    <message>
        <source>Table styles</source>
        <translation>表格样式</translation>
    </message>
    <message>
        <source>Preview of the selected table style</source>
        <translation>所选表格样式的预览</translation>
    </message>
    <message>
        <source>Set &amp;Current</source>
        <translation>置为当前(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>新建(&amp;N)...</translation>
    </message>
    <message>
        <source>&amp;Modify...</source>
        <translation>修改(&amp;M)...</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;List:</source>
        <translation>列出(&amp;L):</translation>
    </message>
    <message>
        <source>Which table styles are listed</source>
        <translation>列出哪些表格样式</translation>
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
    <name>IDR_ALIGNMENT_MENU</name>
    <message>
        <source>Alignment</source>
        <translation>对齐</translation>
    </message>
    <message>
        <source>Top &amp;Left</source>
        <translation>左上(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Top Center</source>
        <translation>中上(&amp;T)</translation>
    </message>
    <message>
        <source>Top &amp;Right</source>
        <translation>右上(&amp;R)</translation>
    </message>
    <message>
        <source>Middle L&amp;eft</source>
        <translation>左中(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Middle Center</source>
        <translation>正中(&amp;M)</translation>
    </message>
    <message>
        <source>Middle Ri&amp;ght</source>
        <translation>右中(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Bottom Left</source>
        <translation>左下(&amp;B)</translation>
    </message>
    <message>
        <source>B&amp;ottom Center</source>
        <translation>中下(&amp;O)</translation>
    </message>
    <message>
        <source>Bottom Rig&amp;ht</source>
        <translation>右下(&amp;H)</translation>
    </message>
</context>
<context>
    <name>IDR_BYCOLUMN_INSERT_MENU</name>
    <message>
        <source>Column</source>
        <translation>列</translation>
    </message>
    <message>
        <source>Insert Column &amp;Left</source>
        <translation>在左侧插入列(&amp;L)</translation>
    </message>
    <message>
        <source>Insert Column &amp;Right</source>
        <translation>在右侧插入列(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Delete Column</source>
        <translation>删除列(&amp;D)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>D&amp;elete Contents</source>
        <translation>删除内容(&amp;E)</translation>
    </message>
    <message>
        <source>Mer&amp;ge</source>
        <translation>合并(&amp;G)</translation>
    </message>
    <message>
        <source>Merge &amp;All</source>
        <translation>全部(&amp;A)</translation>
    </message>
    <message>
        <source>Merge by &amp;Row</source>
        <translation>按行(&amp;R)</translation>
    </message>
    <message>
        <source>Merge by &amp;Column</source>
        <translation>按列(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Unmerge</source>
        <translation>取消合并(&amp;U)</translation>
    </message>
    <message>
        <source>L&amp;ocking</source>
        <translation>锁定(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Unlocked</source>
        <translation>未锁定(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Content Locked</source>
        <translation>内容已锁定(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Format Locked</source>
        <translation>格式已锁定(&amp;F)</translation>
    </message>
    <message>
        <source>Content and Format &amp;Locked</source>
        <translation>内容和格式已锁定(&amp;L)</translation>
    </message>
    <message>
        <source>Data &amp;Format...</source>
        <translation>数据格式(&amp;F)...</translation>
    </message>
    <message>
        <source>Alig&amp;nment</source>
        <translation>对齐(&amp;N)</translation>
    </message>
    <message>
        <source>Top &amp;Left</source>
        <translation>左上(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Top Center</source>
        <translation>中上(&amp;T)</translation>
    </message>
    <message>
        <source>Top &amp;Right</source>
        <translation>右上(&amp;R)</translation>
    </message>
    <message>
        <source>Middle L&amp;eft</source>
        <translation>左中(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Middle Center</source>
        <translation>正中(&amp;M)</translation>
    </message>
    <message>
        <source>Middle Ri&amp;ght</source>
        <translation>右中(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Bottom Left</source>
        <translation>左下(&amp;B)</translation>
    </message>
    <message>
        <source>B&amp;ottom Center</source>
        <translation>中下(&amp;O)</translation>
    </message>
    <message>
        <source>Bottom Rig&amp;ht</source>
        <translation>右下(&amp;H)</translation>
    </message>
    <message>
        <source>Bac&amp;kground Fill...</source>
        <translation>背景填充(&amp;K)...</translation>
    </message>
</context>
<context>
    <name>IDR_BYROW_INSERT_MENU</name>
    <message>
        <source>Row</source>
        <translation>行</translation>
    </message>
    <message>
        <source>Insert Row &amp;Above</source>
        <translation>在上方插入行(&amp;A)</translation>
    </message>
    <message>
        <source>Insert Row &amp;Below</source>
        <translation>在下方插入行(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Delete Row</source>
        <translation>删除行(&amp;D)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>D&amp;elete Contents</source>
        <translation>删除内容(&amp;E)</translation>
    </message>
    <message>
        <source>Mer&amp;ge</source>
        <translation>合并(&amp;G)</translation>
    </message>
    <message>
        <source>Merge &amp;All</source>
        <translation>全部(&amp;A)</translation>
    </message>
    <message>
        <source>Merge by &amp;Row</source>
        <translation>按行(&amp;R)</translation>
    </message>
    <message>
        <source>Merge by &amp;Column</source>
        <translation>按列(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Unmerge</source>
        <translation>取消合并(&amp;U)</translation>
    </message>
    <message>
        <source>L&amp;ocking</source>
        <translation>锁定(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Unlocked</source>
        <translation>未锁定(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Content Locked</source>
        <translation>内容已锁定(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Format Locked</source>
        <translation>格式已锁定(&amp;F)</translation>
    </message>
    <message>
        <source>Content and Format &amp;Locked</source>
        <translation>内容和格式已锁定(&amp;L)</translation>
    </message>
    <message>
        <source>Data &amp;Format...</source>
        <translation>数据格式(&amp;F)...</translation>
    </message>
    <message>
        <source>Alig&amp;nment</source>
        <translation>对齐(&amp;N)</translation>
    </message>
    <message>
        <source>Top &amp;Left</source>
        <translation>左上(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Top Center</source>
        <translation>中上(&amp;T)</translation>
    </message>
    <message>
        <source>Top &amp;Right</source>
        <translation>右上(&amp;R)</translation>
    </message>
    <message>
        <source>Middle L&amp;eft</source>
        <translation>左中(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Middle Center</source>
        <translation>正中(&amp;M)</translation>
    </message>
    <message>
        <source>Middle Ri&amp;ght</source>
        <translation>右中(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Bottom Left</source>
        <translation>左下(&amp;B)</translation>
    </message>
    <message>
        <source>B&amp;ottom Center</source>
        <translation>中下(&amp;O)</translation>
    </message>
    <message>
        <source>Bottom Rig&amp;ht</source>
        <translation>右下(&amp;H)</translation>
    </message>
    <message>
        <source>Bac&amp;kground Fill...</source>
        <translation>背景填充(&amp;K)...</translation>
    </message>
</context>
<context>
    <name>IDR_DATAFORMAT_MENU</name>
    <message>
        <source>Data Format</source>
        <translation>数据格式</translation>
    </message>
    <message>
        <source>&amp;Angle</source>
        <translation>角度(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Currency</source>
        <translation>货币(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Date</source>
        <translation>日期(&amp;D)</translation>
    </message>
    <message>
        <source>D&amp;ecimal Number</source>
        <translation>十进制数(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>常规(&amp;G)</translation>
    </message>
    <message>
        <source>Pe&amp;rcentage</source>
        <translation>百分比(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Point</source>
        <translation>点(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>文字(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Whole Number</source>
        <translation>整数(&amp;W)</translation>
    </message>
    <message>
        <source>Custo&amp;m Format...</source>
        <translation>自定义格式(&amp;M)...</translation>
    </message>
</context>
<context>
    <name>IDR_FORMULA_MENU</name>
    <message>
        <source>Formula</source>
        <translation>公式</translation>
    </message>
    <message>
        <source>&amp;Sum</source>
        <translation>求和(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Average</source>
        <translation>平均值(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Count</source>
        <translation>计数(&amp;C)</translation>
    </message>
    <message>
        <source>C&amp;ell</source>
        <translation>单元(&amp;E)</translation>
    </message>
    <message>
        <source>E&amp;quation</source>
        <translation>方程式(&amp;Q)</translation>
    </message>
</context>
<context>
    <name>IDR_LOCKING_MENU</name>
    <message>
        <source>Locking</source>
        <translation>锁定</translation>
    </message>
    <message>
        <source>&amp;Unlocked</source>
        <translation>未锁定(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Content Locked</source>
        <translation>内容已锁定(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Format Locked</source>
        <translation>格式已锁定(&amp;F)</translation>
    </message>
    <message>
        <source>Content and Format &amp;Locked</source>
        <translation>内容和格式已锁定(&amp;L)</translation>
    </message>
</context>
<context>
    <name>IDR_MANAGECELL_MENU</name>
    <message>
        <source>Cell style</source>
        <translation>单元样式</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>新建(&amp;N)...</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>重命名(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
</context>
<context>
    <name>IDR_MANAGETABLE_MENU</name>
    <message>
        <source>Table style</source>
        <translation>表格样式</translation>
    </message>
    <message>
        <source>Set &amp;Current</source>
        <translation>置为当前(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>重命名(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
</context>
<context>
    <name>IDR_MERGE_MENU</name>
    <message>
        <source>Merge</source>
        <translation>合并</translation>
    </message>
    <message>
        <source>Merge &amp;All</source>
        <translation>全部合并(&amp;A)</translation>
    </message>
    <message>
        <source>Merge by &amp;Row</source>
        <translation>按行合并(&amp;R)</translation>
    </message>
    <message>
        <source>Merge by &amp;Column</source>
        <translation>按列合并(&amp;C)</translation>
    </message>
</context>
<context>
    <name>IDR_TABLECELL_MENU</name>
    <message>
        <source>Cells</source>
        <translation>单元</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Alignment</source>
        <translation>对齐(&amp;A)</translation>
    </message>
    <message>
        <source>Top &amp;Left</source>
        <translation>左上(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Top Center</source>
        <translation>中上(&amp;T)</translation>
    </message>
    <message>
        <source>Top &amp;Right</source>
        <translation>右上(&amp;R)</translation>
    </message>
    <message>
        <source>Middle L&amp;eft</source>
        <translation>左中(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Middle Center</source>
        <translation>正中(&amp;M)</translation>
    </message>
    <message>
        <source>Middle Ri&amp;ght</source>
        <translation>右中(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Bottom Left</source>
        <translation>左下(&amp;B)</translation>
    </message>
    <message>
        <source>B&amp;ottom Center</source>
        <translation>中下(&amp;O)</translation>
    </message>
    <message>
        <source>Bottom Rig&amp;ht</source>
        <translation>右下(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Background Fill...</source>
        <translation>背景填充(&amp;B)...</translation>
    </message>
    <message>
        <source>B&amp;orders...</source>
        <translation>边框(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Locking</source>
        <translation>锁定(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Unlocked</source>
        <translation>未锁定(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Content Locked</source>
        <translation>内容已锁定(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Format Locked</source>
        <translation>格式已锁定(&amp;F)</translation>
    </message>
    <message>
        <source>Content and Format &amp;Locked</source>
        <translation>内容和格式已锁定(&amp;L)</translation>
    </message>
    <message>
        <source>Data &amp;Format...</source>
        <translation>数据格式(&amp;F)...</translation>
    </message>
    <message>
        <source>&amp;Match Cell</source>
        <translation>匹配单元(&amp;M)</translation>
    </message>
    <message>
        <source>Mer&amp;ge</source>
        <translation>合并(&amp;G)</translation>
    </message>
    <message>
        <source>Merge &amp;All</source>
        <translation>全部(&amp;A)</translation>
    </message>
    <message>
        <source>Merge by &amp;Row</source>
        <translation>按行(&amp;R)</translation>
    </message>
    <message>
        <source>Merge by &amp;Column</source>
        <translation>按列(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Unmerge</source>
        <translation>取消合并(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Delete Contents</source>
        <translation>删除内容(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Edit Text</source>
        <translation>编辑文字(&amp;E)</translation>
    </message>
    <message>
        <source>Colum&amp;ns</source>
        <translation>列(&amp;N)</translation>
    </message>
    <message>
        <source>Insert &amp;Left</source>
        <translation>在左侧插入(&amp;L)</translation>
    </message>
    <message>
        <source>Insert &amp;Right</source>
        <translation>在右侧插入(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Delete Columns</source>
        <translation>删除列(&amp;D)</translation>
    </message>
    <message>
        <source>Size Columns &amp;Equally</source>
        <translation>均匀调整列宽(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Rows</source>
        <translation>行(&amp;R)</translation>
    </message>
    <message>
        <source>Insert &amp;Above</source>
        <translation>在上方插入(&amp;A)</translation>
    </message>
    <message>
        <source>Insert &amp;Below</source>
        <translation>在下方插入(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Delete Rows</source>
        <translation>删除行(&amp;D)</translation>
    </message>
    <message>
        <source>Size Rows &amp;Equally</source>
        <translation>均匀调整行高(&amp;E)</translation>
    </message>
</context>
<context>
    <name>IDR_TABLESTYLE_MENU</name>
    <message>
        <source>Table</source>
        <translation>表格</translation>
    </message>
    <message>
        <source>&amp;Table Style</source>
        <translation>表格样式(&amp;T)</translation>
    </message>
    <message>
        <source>Size &amp;Columns Equally</source>
        <translation>均匀调整列宽(&amp;C)</translation>
    </message>
    <message>
        <source>Size &amp;Rows Equally</source>
        <translation>均匀调整行高(&amp;R)</translation>
    </message>
    <message>
        <source>Save as &amp;New Table Style</source>
        <translation>另存为新表格样式(&amp;N)</translation>
    </message>
    <message>
        <source>Set as C&amp;urrent Table Style</source>
        <translation>置为当前表格样式(&amp;U)</translation>
    </message>
    <message>
        <source>Remove &amp;All Property Overrides</source>
        <translation>删除所有特性替代(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>输出(&amp;E)...</translation>
    </message>
    <message>
        <source>&amp;Indicator Color...</source>
        <translation>指示器颜色(&amp;I)...</translation>
    </message>
</context>
</TS>
