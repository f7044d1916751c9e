<?xml version="1.0" encoding="UTF-8"?>
<!--
  custom.xsl - your own export form ("Custom" in the Export window).

  A starting point: edit freely. The input is the character file; its root
  is <character name="...">, and every value sits in an attribute:
    <strength base="2" bonus="1" total="3"/>  (also dexterity, constitution,
        intelligence, perception, willpower)
    <lifepoints bonus="" total=""/>  then either <dramapoints points=""/> or
        <endurance/>, <speed/>, <essence/> with bonus and total
    <quality col0="name" col1="level" col2="cost" col3="XP">notes</quality>
        (skill and meta rows alike; a cost below 0 marks a drawback and
        a name of two dashes a separator row)
    <notes>, <history>, <contacts>, <altforms>, <equipment>, <journal>:
        one <p> per line of text (and <sr> style runs, for the colours)
  To write plain text instead, use method="text" and drop the tags.
-->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>

  <xsl:template match="/character">
    <html>
      <head><title><xsl:value-of select="@name"/></title></head>
      <body>
        <h1><xsl:value-of select="@name"/></h1>
        <p>Player: <xsl:value-of select="player/@name"/>,
          <xsl:value-of select="concat(charactertype/@type, ' / ', charactertype/@choice)"/></p>

        <!-- Six attributes, in file order; name() gives "strength" etc. -->
        <p><xsl:for-each select="strength | dexterity | constitution | intelligence | perception | willpower">
          <xsl:value-of select="concat(name(), ' ', @total, '; ')"/>
        </xsl:for-each></p>

        <p>Life Points <xsl:value-of select="lifepoints/@total"/>
          <!-- only one of the two is in a file -->
          <xsl:if test="dramapoints">, Drama Points <xsl:value-of select="dramapoints/@points"/></xsl:if>
          <xsl:if test="essence">, Essence <xsl:value-of select="essence/@total"/></xsl:if></p>

        <!-- Qualities, skipping separator rows; for drawbacks alone add
             [number(@col2) &lt; 0] to the select. -->
        <ul><xsl:for-each select="quality[@col0 != '--']">
          <li><xsl:value-of select="concat(@col0, ' ', @col1)"/></li>
        </xsl:for-each></ul>

        <!-- A styled field as plain lines. -->
        <xsl:for-each select="notes/p"><xsl:value-of select="."/><br/></xsl:for-each>
      </body>
    </html>
  </xsl:template>
</xsl:stylesheet>
