<?xml version="1.0" encoding="UTF-8"?>
<!--
  zepsummary.xsl - the character on one screen, as plain text.

  Input: a Zephalon character file (root element "character").
  Meant for a game master's notes: who the character is, the numbers that
  come up in play, and what was bought, by name and level. Lists wrap
  between entries, never inside a name.
-->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:output method="text" encoding="UTF-8"/>

  <xsl:variable name="W" select="78"/>
  <xsl:variable name="NL" select="'&#10;'"/>
  <!-- ends each entry of a list while it is built; a private-use
       character, so it cannot clash with a name -->
  <xsl:variable name="SEP" select="'&#xE000;'"/>
  <xsl:variable name="upper" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="lower" select="'abcdefghijklmnopqrstuvwxyz'"/>
  <xsl:variable name="sp" select="'                                                                                '"/>

  <xsl:template match="/">
    <xsl:apply-templates select="character"/>
  </xsl:template>

  <xsl:template match="character">
    <!-- who -->
    <xsl:choose>
      <xsl:when test="normalize-space(@name) != ''"><xsl:value-of select="normalize-space(@name)"/></xsl:when>
      <xsl:otherwise>Unnamed character</xsl:otherwise>
    </xsl:choose>
    <xsl:variable name="type" select="normalize-space(charactertype/@type)"/>
    <xsl:variable name="choice" select="normalize-space(charactertype/@choice)"/>
    <xsl:variable name="concept" select="normalize-space(concept/@concept)"/>
    <xsl:if test="concat($type, $choice, $concept) != ''">
      <xsl:text> (</xsl:text>
      <xsl:value-of select="$type"/>
      <xsl:if test="$type != '' and $choice != ''"> / </xsl:if>
      <xsl:value-of select="$choice"/>
      <xsl:if test="concat($type, $choice) != '' and $concept != ''">, </xsl:if>
      <xsl:value-of select="$concept"/>
      <xsl:text>)</xsl:text>
    </xsl:if>
    <xsl:value-of select="$NL"/>
    <xsl:if test="normalize-space(player/@name) != '' or normalize-space(association/@name) != ''">
      <xsl:if test="normalize-space(player/@name) != ''">
        <xsl:value-of select="concat('Player: ', normalize-space(player/@name))"/>
        <xsl:if test="normalize-space(association/@name) != ''"><xsl:text>   </xsl:text></xsl:if>
      </xsl:if>
      <xsl:if test="normalize-space(association/@name) != ''">
        <xsl:value-of select="concat('Association: ', normalize-space(association/@name))"/>
      </xsl:if>
      <xsl:value-of select="$NL"/>
    </xsl:if>
    <xsl:value-of select="$NL"/>

    <!-- numbers -->
    <xsl:value-of select="concat('Str ', strength/@total, '  Dex ', dexterity/@total, '  Con ', constitution/@total,
                                 '  Int ', intelligence/@total, '  Per ', perception/@total, '  Will ', willpower/@total, $NL)"/>
    <xsl:value-of select="concat('Life Points ', lifepoints/@total)"/>
    <xsl:for-each select="endurance">  Endurance <xsl:value-of select="@total"/></xsl:for-each>
    <xsl:for-each select="speed">  Speed <xsl:value-of select="@total"/></xsl:for-each>
    <xsl:for-each select="essence[normalize-space(@total) != '0']">  Essence <xsl:value-of select="@total"/></xsl:for-each>
    <xsl:for-each select="dramapoints">  Drama Points <xsl:value-of select="@points"/></xsl:for-each>
    <xsl:value-of select="$NL"/>
    <xsl:if test="normalize-space(extrastats) != ''">
      <xsl:value-of select="concat('Pools: ', normalize-space(extrastats), $NL)"/>
    </xsl:if>
    <xsl:value-of select="$NL"/>

    <!-- purchases; a drawback is a row with a negative cost -->
    <xsl:variable name="q" select="quality[not(starts-with(normalize-space(@col0), '--'))]"/>
    <xsl:call-template name="line">
      <xsl:with-param name="label" select="'Qualities: '"/>
      <xsl:with-param name="rows" select="$q[not(number(@col2) &lt; 0)]"/>
    </xsl:call-template>
    <xsl:call-template name="line">
      <xsl:with-param name="label" select="'Drawbacks: '"/>
      <xsl:with-param name="rows" select="$q[number(@col2) &lt; 0]"/>
    </xsl:call-template>
    <xsl:call-template name="line">
      <xsl:with-param name="label" select="'Skills: '"/>
      <xsl:with-param name="rows" select="skill[not(starts-with(normalize-space(@col0), '--'))]"/>
    </xsl:call-template>
    <xsl:call-template name="line">
      <xsl:with-param name="label" select="'Metaphysics: '"/>
      <xsl:with-param name="rows" select="meta[not(starts-with(normalize-space(@col0), '--'))]"/>
    </xsl:call-template>
    <xsl:call-template name="moves">
      <xsl:with-param name="label" select="'Maneuvers: '"/>
      <xsl:with-param name="moves" select="martialmaneuver"/>
    </xsl:call-template>
    <xsl:call-template name="moves">
      <xsl:with-param name="label" select="'Visualizations: '"/>
      <xsl:with-param name="moves" select="visualization"/>
    </xsl:call-template>

    <!-- bookkeeping -->
    <xsl:variable name="pts">
      <xsl:for-each select="charpoints/@*[normalize-space(.) != '']">
        <xsl:choose>
          <xsl:when test="name() = 'attributes'">Attr </xsl:when>
          <xsl:when test="name() = 'qualities'">Qual </xsl:when>
          <xsl:when test="name() = 'drawbacks'">Drawb </xsl:when>
          <xsl:when test="name() = 'skills'">Skill </xsl:when>
          <xsl:otherwise>Meta </xsl:otherwise>
        </xsl:choose>
        <xsl:value-of select="concat(normalize-space(.), $SEP)"/>
      </xsl:for-each>
    </xsl:variable>
    <xsl:if test="string($pts) != ''">
      <xsl:call-template name="items">
        <xsl:with-param name="list" select="concat('Points: ', string($pts))"/>
        <xsl:with-param name="indent" select="8"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:if test="experience/@*[normalize-space(.) != '']">
      <xsl:value-of select="concat('XP ', normalize-space(experience/@saved), ' unspent, ', normalize-space(experience/@spent), ' spent')"/>
      <xsl:if test="translate(characterinplay/@value, $upper, $lower) = 'yes'"> (in play)</xsl:if>
      <xsl:value-of select="$NL"/>
    </xsl:if>
  </xsl:template>

  <!-- "Label: name level, name level, ..." for rows of a list. -->
  <xsl:template name="line">
    <xsl:param name="label"/>
    <xsl:param name="rows"/>
    <xsl:if test="$rows">
      <xsl:variable name="list">
        <xsl:value-of select="$label"/>
        <xsl:for-each select="$rows">
          <xsl:call-template name="pretty-name"/>
          <xsl:if test="normalize-space(@col1) != ''"><xsl:value-of select="concat(' ', normalize-space(@col1))"/></xsl:if>
          <xsl:value-of select="$SEP"/>
        </xsl:for-each>
      </xsl:variable>
      <xsl:call-template name="items">
        <xsl:with-param name="list" select="string($list)"/>
        <xsl:with-param name="indent" select="string-length($label)"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- Moves are stored last row first; "*" marks a basic move. -->
  <xsl:template name="moves">
    <xsl:param name="label"/>
    <xsl:param name="moves"/>
    <xsl:if test="$moves">
      <xsl:variable name="list">
        <xsl:value-of select="$label"/>
        <xsl:for-each select="$moves">
          <xsl:sort select="position()" data-type="number" order="descending"/>
          <xsl:value-of select="normalize-space(@name)"/>
          <xsl:if test="normalize-space(@value) != ''"><xsl:value-of select="concat(' ', normalize-space(@value))"/></xsl:if>
          <xsl:value-of select="$SEP"/>
        </xsl:for-each>
      </xsl:variable>
      <xsl:call-template name="items">
        <xsl:with-param name="list" select="string($list)"/>
        <xsl:with-param name="indent" select="string-length($label)"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- Writes SEP-terminated entries joined by ", ", breaking lines only
       between entries; continuation lines are indented. Ends the line. -->
  <xsl:template name="items">
    <xsl:param name="list"/>
    <xsl:param name="indent"/>
    <xsl:param name="col" select="0"/>
    <xsl:param name="first" select="true()"/>
    <xsl:variable name="item" select="substring-before($list, $SEP)"/>
    <xsl:variable name="rest" select="substring-after($list, $SEP)"/>
    <xsl:choose>
      <xsl:when test="$first">
        <xsl:value-of select="$item"/>
        <xsl:call-template name="next">
          <xsl:with-param name="rest" select="$rest"/>
          <xsl:with-param name="indent" select="$indent"/>
          <xsl:with-param name="col" select="string-length($item)"/>
        </xsl:call-template>
      </xsl:when>
      <!-- the comma stays on the line it closes -->
      <xsl:when test="$col + 2 + string-length($item) &gt; $W">
        <xsl:value-of select="concat(',', $NL, substring($sp, 1, $indent), $item)"/>
        <xsl:call-template name="next">
          <xsl:with-param name="rest" select="$rest"/>
          <xsl:with-param name="indent" select="$indent"/>
          <xsl:with-param name="col" select="$indent + string-length($item)"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="concat(', ', $item)"/>
        <xsl:call-template name="next">
          <xsl:with-param name="rest" select="$rest"/>
          <xsl:with-param name="indent" select="$indent"/>
          <xsl:with-param name="col" select="$col + 2 + string-length($item)"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="next">
    <xsl:param name="rest"/>
    <xsl:param name="indent"/>
    <xsl:param name="col"/>
    <xsl:choose>
      <xsl:when test="contains($rest, $SEP)">
        <xsl:call-template name="items">
          <xsl:with-param name="list" select="$rest"/>
          <xsl:with-param name="indent" select="$indent"/>
          <xsl:with-param name="col" select="$col"/>
          <xsl:with-param name="first" select="false()"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$NL"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- "Guns(Handgun)" is stored without a blank before the sub-type. -->
  <xsl:template name="pretty-name">
    <xsl:param name="s" select="normalize-space(@col0)"/>
    <xsl:variable name="before" select="substring-before($s, '(')"/>
    <xsl:choose>
      <xsl:when test="$before != '' and substring($before, string-length($before)) != ' '">
        <xsl:value-of select="concat($before, ' (', substring-after($s, '('))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$s"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
