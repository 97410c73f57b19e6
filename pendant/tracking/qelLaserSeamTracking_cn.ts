<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>SeamTrackingPage</name>
    <message>
        <source>Ready. The sensor is off.</source>
        <translation>就绪，传感器已关闭。</translation>
    </message>
    <message>
        <source>Seam camera</source>
        <translation>焊缝相机</translation>
    </message>
    <message>
        <source>Seam: %1 mm across, %2 mm up</source>
        <translation>焊缝：横向 %1 mm，高度 %2 mm</translation>
    </message>
    <message>
        <source>Sensor</source>
        <translation>传感器</translation>
    </message>
</context>
<context>
    <name>qelplugin::SeamTracking</name>
    <message>
        <source>Seam Tracking</source>
        <translation>焊缝跟踪</translation>
    </message>
</context>
</TS>
